#pragma once
// The extension-panel host as the library sees it: extensions (panels), the stages they are shown
// in, and the free functions that reach whichever host is installed (PanelkitManager/PanelHost.h).
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include <boost/intrusive_ptr.hpp>

#include "Fnd/WString.h"
#include "fluxcore/RefCountedObject.h"
#include "fluxcore/geom/Geometry.h"
#include "fluxui/ui/UI_Node.h"

namespace PanelkitManager {

// The stage id of an extension that has no stage.
inline constexpr std::int32_t kNoStage = -1;

class IStage : public virtual fluxcore::utility::RefCountedInterface {
public:
    virtual std::int32_t GetStageID() const = 0;
    virtual Fnd::WString GetTitle() const = 0;
    virtual std::string GetExtensionID() const = 0;
    // Where the panel wants to be shown, in its own space.
    virtual fluxcore::geom::RectI GetBounds() const = 0;
    // True once the host has unloaded the stage; a closed stage shows nothing again.
    virtual bool IsClosed() const = 0;
    virtual void SetDisplayMode(int mode) = 0;
    // The panel's form as a toolkit tree, sized to rect. Each call builds a fresh view.
    virtual fluxui::ui::UI_NodeRef CreateView(const fluxcore::geom::RectI& rect) = 0;
    // 0 once the panel has answered or was parked; otherwise it runs.
    virtual int GetRunState() const = 0;
};
using IStageRef = boost::intrusive_ptr<IStage>;

class IExtension : public virtual fluxcore::utility::RefCountedInterface {
public:
    virtual std::string GetExtensionID() const = 0;
    // A stage exists and has not ended.
    virtual bool IsStagePrepared() const = 0;
    // Readies a stage that runs at once; with parked, it waits for UnparkStage.
    virtual void PrepareStage(bool parked) = 0;
    // The extension forgets its stage; the stage itself lives until it is unloaded.
    virtual void ReleaseStage() = 0;
    // kNoStage without a stage.
    virtual std::int32_t GetStageID() const = 0;
    virtual bool IsModeless() const = 0;
};
using IExtensionRef = boost::intrusive_ptr<IExtension>;

// Null when no stage has that id.
IStageRef GetStage(std::int32_t stageID);
void ParkStage(std::int32_t stageID);
void UnparkStage(std::int32_t stageID);
void UnloadStage(std::int32_t stageID);
// Null when no extension has that id.
IExtensionRef GetExtensionByID(const std::string& extensionID);
// Throws std::out_of_range past GetNumExtensions.
IExtensionRef GetExtensionByIndex(std::size_t index);
std::size_t GetNumExtensions();

// Part of the id of every panel that collects the metadata an ingest requires.
Fnd::WString GetMinimumMetadataIDStr();

// A property of a panel answer: the attribute of that name on the document element, or, with
// searchWholeDocument, on the first element in document order that carries it. Empty when it
// is absent or the data is not a readable document.
Fnd::WString GetInfoForProperty(Fnd::WStringView data, std::string_view name, bool searchWholeDocument);

namespace Event {
// The type of a panel's answer to an ingest's metadata question.
Fnd::WString GetPanelkitEventTypeMinimumMetadata();
// The type of the news that an extension went away; its data is the extension's id.
Fnd::WString GetPanelkitEventTypeExtensionUnloaded();
} // namespace Event

} // namespace PanelkitManager
