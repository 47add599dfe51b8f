#include "HostSession.h"

#include <QApplication>
#include <cstdlib>
#include <iostream>
#include <memory>
#include <QPushButton>

#include "HostWindow.h"
#include "IGD/IngestDialogApi.h"
#include "QL/Engine/Journal.h"
#include "QL/Engine/TaskService.h"
#include "QL/TaskFactory.h"

namespace igd::dialog {
namespace {

// The service that copies lives as long as the host, and is gone before the library is let go.
class HostTaskService {
public:
    explicit HostTaskService(const std::string& projectPath) {
        QL::Engine::TaskServiceOptions options;
        options.projectPath = projectPath;
        service_ = std::make_shared<QL::Engine::TaskService>(options);
        QL::IngestTask::SetTaskService(service_);
    }
    ~HostTaskService() {
        QL::IngestTask::SetTaskService(nullptr);
        // Cancels what still runs and waits for its workers.
        service_.reset();
    }
    HostTaskService(const HostTaskService&) = delete;
    HostTaskService& operator=(const HostTaskService&) = delete;

private:
    std::shared_ptr<QL::Engine::TaskService> service_;
};

} // namespace

int RunReplay(const std::vector<ReplayStep>& replay, ReplayHost host, const ReplayOptions& options) {
    ReplayEngine engine(replay, std::move(host), options, [](int status) {
        if (QApplication::activeModalWidget()) {
            std::cout.flush();
            std::cerr.flush();
            std::_Exit(status);
        }
        QApplication::exit(status);
    });
    engine.Start();
    return QApplication::exec();
}

int RunHost(const std::string& projectPath, const Fnd::WString& defaultBin, const std::vector<ReplayStep>& replay,
            const ReplayOptions& options) {
    std::unique_ptr<HostTaskService> tasks;
    try {
        tasks = std::make_unique<HostTaskService>(projectPath);
    } catch (const QL::Engine::JournalError& error) {
        std::cerr << "igd-dialog: the task journal cannot be opened: " << error.what() << "\n";
        return EXIT_FAILURE;
    }
    IGD::IngestDialogRegister();
    int status = 0;
    {
        HostWindow window(projectPath, defaultBin);
        window.show();
        window.activateWindow();
        if (replay.empty()) {
            status = QApplication::exec();
        } else {
            ReplayHost host;
            host.tree = [] { return nullptr; };
            host.widget = [&window] { return &window; };
            host.ingest = [&window] { window.IngestButton().click(); };
            host.batchState = [&window] { return window.Batch().State(); };
            host.batchSummary = [&window] {
                std::string summary = window.Batch().Line();
                for (const std::string& failure : window.Batch().Failures())
                    summary += "; " + failure;
                return summary;
            };
            status = RunReplay(replay, std::move(host), options);
        }
    }
    tasks.reset();
    IGD::ReleaseIngestResHandlers();
    IGD::IngestDialogTerminate();
    return status;
}

} // namespace igd::dialog
