#include "HostServices.h"

#include <stdexcept>

#include "AppFrame/DocumentManager.h"
#include "Av/CachingFrameService.h"
#include "Av/EncoderList.h"
#include "Fnd/InteractionDriver.h"
#include "IGD/CommonFileDialog.h"
#include "IGD/IngestDialogApi.h"
#include "IGD/LayoutPreview.h"
#include "IgdQt/QtFileDialogFactory.h"
#include "IgdQt/QtInteractionDriver.h"
#include "IgdQt/QtRunLoop.h"
#include "Mid/Project.h"
#include "Proj/PreferenceStore.h"
#include "Proj/Project.h"
#include "QL/Engine/Journal.h"
#include "QL/Engine/TaskService.h"
#include "QL/FilePresetService.h"

namespace embed {

HostServices::HostServices() {
    AppFrame::DocumentManager::SetInstance(std::make_shared<AppFrame::FixedDocumentManager>(false));
    Mid::SetProject(Proj::MakeProjectOfFile(Proj::DefaultProjectPath()));
    // The template sections list the presets under $IGD_HOME/presets and the shipped ones.
    QL::InstallFilePresetService();
    // The destinations, their recent paths and the section states are kept under $IGD_HOME.
    try {
        Proj::InstallPreferenceStore();
    } catch (const std::exception& error) {
        throw std::runtime_error(std::string("the preferences cannot be opened: ") + error.what());
    }
    // A destination may transcode: its format menus list what this FFmpeg can write.
    Av::InstallEncoderList();
    Av::InstallFrameService();
    runLoop_ = igd::qt::QtRunLoop::Install();
    // The template checks ask their questions in Qt boxes over this program's window.
    Fnd::SetInteractionDriver(std::make_shared<igd::qt::QtInteractionDriver>(
        igd::qt::PictureSource(IGD::IngestResourceManager())));
    SetFileDialogFactory(std::make_shared<igd::qt::QtFileDialogFactory>());
    try {
        taskService_ = std::make_shared<QL::Engine::TaskService>(QL::Engine::TaskServiceOptions{});
    } catch (const QL::Engine::JournalError& error) {
        throw std::runtime_error(std::string("the task journal cannot be opened: ") + error.what());
    }
    QL::IngestTask::SetTaskService(taskService_);
}

HostServices::~HostServices() {
    QL::IngestTask::SetTaskService(nullptr);
    // The service cancels what still runs and waits for its workers.
    taskService_.reset();
    SetFileDialogFactory(nullptr);
    Fnd::SetInteractionDriver(nullptr);
    Fnd::SetRunLoop(nullptr);
    IGD::ReleaseIngestResHandlers();
}

} // namespace embed
