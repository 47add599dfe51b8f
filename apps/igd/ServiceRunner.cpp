#include "ServiceRunner.h"

#include <unistd.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <iostream>
#include <memory>
#include <thread>

#include "ExitCodes.h"
#include "Fnd/RunLoop.h"
#include "IGD/IngestApi.h"
#include "ProgressPrinter.h"
#include "QL/Engine/Journal.h"

namespace igd {
namespace {

std::atomic<bool> interruptRequested{false};

extern "C" void OnInterrupt(int) {
    interruptRequested.store(true);
    // The next one takes the default way out.
    std::signal(SIGINT, SIG_DFL);
}

void RunUntilIdle(const QL::Engine::TaskService& service) {
    interruptRequested.store(false);
    struct sigaction action {};
    struct sigaction previous {};
    action.sa_handler = OnInterrupt;
    sigemptyset(&action.sa_mask);
    sigaction(SIGINT, &action, &previous);

    bool stopSent = false;
    for (;;) {
        Fnd::GetDefaultQueue().Drain();
        if (interruptRequested.load() && !stopSent) {
            IGD::StopIngest();
            stopSent = true;
            continue;
        }
        if (service.IsIdle()) {
            // The last outcomes were posted before the service went idle.
            Fnd::GetDefaultQueue().Drain();
            break;
        }
        // The service reports a few times a second; a short sleep costs nothing here and keeps
        // the process off the processor.
        std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }
    sigaction(SIGINT, &previous, nullptr);
}

// Installed for the library while the command runs, removed however it ends.
struct InstalledService {
    explicit InstalledService(std::shared_ptr<QL::Engine::TaskService> s) : service(std::move(s)) {
        QL::IngestTask::SetTaskService(service);
    }
    ~InstalledService() { QL::IngestTask::SetTaskService(nullptr); }
    std::shared_ptr<QL::Engine::TaskService> service;
};

} // namespace

int RunTaskService(const ServiceRunOptions& options,
                   const std::function<int(QL::Engine::TaskService& service)>& submit) {
    QL::Engine::TaskServiceOptions serviceOptions;
    serviceOptions.projectPath = options.projectPath;
    serviceOptions.defaultBin = options.bin;
    serviceOptions.setAsideUnreadableJournal = options.setAsideUnreadableJournal;
    std::shared_ptr<QL::Engine::TaskService> service;
    try {
        service = std::make_shared<QL::Engine::TaskService>(serviceOptions);
    } catch (const QL::Engine::JournalError& error) {
        std::cerr << "igd: " << error.what();
        if (error.Unreadable())
            std::cerr << "; nothing in it can be resumed, and the next igd ingest sets it aside";
        std::cerr << "\n";
        return kExitBadInput;
    }
    if (!service->JournalNotice().empty())
        std::cerr << "igd: " << service->JournalNotice() << "\n";
    const InstalledService installed(service);
    const OutputStyle style = options.json                 ? OutputStyle::Json
                              : isatty(STDOUT_FILENO) != 0 ? OutputStyle::Bar
                                                           : OutputStyle::Lines;
    ProgressPrinter printer(std::cout, style);
    printer.SetDestinations(options.destinations);

    if (const int early = submit(*service); early != 0)
        return early;
    RunUntilIdle(*service);
    if (printer.BatchesEnded() == 0) {
        std::cerr << "igd: nothing was ingested\n";
        return kExitFailure;
    }
    printer.PrintSummary();
    return printer.AnyTrouble() ? kExitFailure : kExitSuccess;
}

} // namespace igd
