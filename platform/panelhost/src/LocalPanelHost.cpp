#include "PanelkitManager/LocalPanelHost.h"

#include <dlfcn.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <map>
#include <stdexcept>

#include "Fnd/IgdHome.h"
#include "Fnd/StationUtils.h"
#include "LocalStage.h"
#include "QL/PanelkitEvents.h"

#if !defined(IGD_SHIPPED_PANELS_DIR) || !defined(IGD_INSTALLED_PANELS_DIR)
#error "the build names the folders of shipped panels in IGD_SHIPPED_PANELS_DIR and IGD_INSTALLED_PANELS_DIR"
#endif

namespace PanelkitManager {
namespace {

// An installed library finds the shipped panels beside itself, wherever the prefix was moved; a
// library in a build tree reads them from the source tree.
std::string ShippedPanelsBesideLibrary() {
    Dl_info info{};
    if (dladdr(reinterpret_cast<void*>(&DefaultPanelFolders), &info) != 0 && info.dli_fname != nullptr) {
        std::error_code error;
        const std::filesystem::path library = std::filesystem::canonical(info.dli_fname, error);
        if (!error) {
            const std::filesystem::path installed = library.parent_path().parent_path() / IGD_INSTALLED_PANELS_DIR;
            if (std::filesystem::is_directory(installed, error))
                return installed.string();
        }
    }
    return IGD_SHIPPED_PANELS_DIR;
}

// Stages outlive the extension that made them until they are unloaded, so both the host and its
// extensions share the table.
struct StageTable {
    std::int32_t nextID = 1;
    std::map<std::int32_t, boost::intrusive_ptr<LocalStage>> stages;

    LocalStage* Find(std::int32_t id) const {
        const auto found = stages.find(id);
        return found == stages.end() ? nullptr : found->second.get();
    }
};

class LocalExtension : public IExtension, public fluxcore::utility::RefCountedObject {
public:
    LocalExtension(std::shared_ptr<const PanelDescription> panel, std::shared_ptr<StageTable> table)
        : panel_(std::move(panel)), table_(std::move(table)) {}

    std::string GetExtensionID() const override { return panel_->id; }
    bool IsStagePrepared() const override {
        const LocalStage* stage = table_->Find(stageID_);
        return stage && !stage->IsClosed() && stage->GetRunState() != 0;
    }
    void PrepareStage(bool parked) override {
        if (const LocalStage* stage = table_->Find(stageID_); stage && !stage->IsClosed() && stage->GetRunState() != 0)
            return;
        stageID_ = table_->nextID++;
        table_->stages.emplace(stageID_, new LocalStage(stageID_, panel_, parked));
    }
    void ReleaseStage() override { stageID_ = kNoStage; }
    std::int32_t GetStageID() const override { return stageID_; }
    bool IsModeless() const override { return panel_->modeless; }

private:
    std::shared_ptr<const PanelDescription> panel_;
    std::shared_ptr<StageTable> table_;
    std::int32_t stageID_ = kNoStage;
};

class LocalPanelHost : public PanelHost {
public:
    explicit LocalPanelHost(const PanelFolders& folders) {
        for (const std::string& root : folders.roots)
            ReadRoot(root);
    }

    std::size_t GetNumExtensions() override { return extensions_.size(); }
    IExtensionRef GetExtensionByIndex(std::size_t index) override { return extensions_.at(index); }
    IExtensionRef GetExtensionByID(const std::string& extensionID) override {
        for (const IExtensionRef& extension : extensions_)
            if (extension->GetExtensionID() == extensionID)
                return extension;
        return nullptr;
    }
    IStageRef GetStage(std::int32_t stageID) override { return table_->Find(stageID); }
    void ParkStage(std::int32_t stageID) override {
        if (LocalStage* stage = table_->Find(stageID))
            stage->Park();
    }
    void UnparkStage(std::int32_t stageID) override {
        if (LocalStage* stage = table_->Find(stageID))
            stage->Unpark();
    }
    void UnloadStage(std::int32_t stageID) override {
        const auto found = table_->stages.find(stageID);
        if (found == table_->stages.end())
            return;
        const std::string extensionID = found->second->GetExtensionID();
        found->second->Close();
        table_->stages.erase(found);
        Fnd::StationUtils::PostMessageToUIThread(
            QL::GetPanelkitStationID(),
            QL::PanelbusEvent(Event::GetPanelkitEventTypeExtensionUnloaded(), Fnd::FromUTF8(extensionID)), false);
    }

private:
    void ReadRoot(const std::string& root) {
        std::error_code error;
        if (root.empty() || !std::filesystem::is_directory(root, error))
            return;
        std::vector<std::filesystem::path> folders;
        for (const auto& entry : std::filesystem::directory_iterator(root, error))
            if (entry.is_directory(error))
                folders.push_back(entry.path());
        std::sort(folders.begin(), folders.end());
        for (const std::filesystem::path& folder : folders) {
            try {
                auto panel = std::make_shared<const PanelDescription>(ReadPanelFolder(folder.string()));
                if (GetExtensionByID(panel->id))
                    throw PanelDescriptionError("the id " + panel->id + " is already taken by an earlier panel");
                extensions_.emplace_back(new LocalExtension(std::move(panel), table_));
            } catch (const std::exception& failure) {
                std::cerr << "igd: the panel " << folder.string() << " was skipped: " << failure.what() << '\n';
            }
        }
    }

    std::shared_ptr<StageTable> table_ = std::make_shared<StageTable>();
    std::vector<IExtensionRef> extensions_;
};

} // namespace

PanelFolders DefaultPanelFolders() {
    PanelFolders folders;
    // The site folder is looked for as Fnd::SiteFile looks for a site file, but as a folder.
    std::error_code error;
    const std::string sitePanels = Fnd::IgdHomeDirectory() + "/site/panels";
    folders.roots.push_back(std::filesystem::is_directory(sitePanels, error) ? sitePanels : "/etc/igd/panels");
    folders.roots.push_back(Fnd::IgdHomeDirectory() + "/panels");
    return folders;
}

std::string ShippedPanelsFolder() {
    const char* shipped = std::getenv("IGD_SHIPPED_PANELS");
    return shipped && *shipped ? shipped : ShippedPanelsBesideLibrary();
}

std::shared_ptr<PanelHost> MakeLocalPanelHost(const PanelFolders& folders) {
    return std::make_shared<LocalPanelHost>(folders);
}

} // namespace PanelkitManager
