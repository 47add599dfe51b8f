#pragma once
// The host behind the free functions of PanelkitManager.h. A host application installs one at
// start-up; without one, the local host over the default panel folders answers.
#include <memory>

#include "PanelkitManager/PanelkitManager.h"

namespace PanelkitManager {

class PanelHost {
public:
    virtual ~PanelHost() = default;

    static PanelHost& GetInstance();
    // Installs a host (null: the default local one again) and answers the one it replaced.
    static std::shared_ptr<PanelHost> Install(std::shared_ptr<PanelHost> host);

    virtual std::size_t GetNumExtensions() = 0;
    virtual IExtensionRef GetExtensionByIndex(std::size_t index) = 0;
    virtual IExtensionRef GetExtensionByID(const std::string& extensionID) = 0;
    virtual IStageRef GetStage(std::int32_t stageID) = 0;
    virtual void ParkStage(std::int32_t stageID) = 0;
    virtual void UnparkStage(std::int32_t stageID) = 0;
    virtual void UnloadStage(std::int32_t stageID) = 0;
};

} // namespace PanelkitManager
