#include <memory>
#include <mutex>

#include <xercesc/dom/DOMDocument.hpp>
#include <xercesc/dom/DOMElement.hpp>

#include "Fnd/SafeXmlParser.h"
#include "PanelkitManager/LocalPanelHost.h"
#include "QL/PanelkitEvents.h"

namespace PanelkitManager {
namespace {

struct HostSlot {
    std::mutex mutex;
    std::shared_ptr<PanelHost> installed;
    std::shared_ptr<PanelHost> local; // read on first use, when nothing was installed
};

HostSlot& Slot() {
    static HostSlot slot;
    return slot;
}

const xercesc::DOMElement* FindCarrier(const xercesc::DOMElement& element, const XMLCh* name) {
    if (element.getAttributeNode(name))
        return &element;
    for (const xercesc::DOMElement* child = element.getFirstElementChild(); child;
         child = child->getNextElementSibling())
        if (const xercesc::DOMElement* found = FindCarrier(*child, name))
            return found;
    return nullptr;
}

} // namespace

PanelHost& PanelHost::GetInstance() {
    std::lock_guard lock(Slot().mutex);
    if (Slot().installed)
        return *Slot().installed;
    if (!Slot().local)
        Slot().local = MakeLocalPanelHost(DefaultPanelFolders());
    return *Slot().local;
}

std::shared_ptr<PanelHost> PanelHost::Install(std::shared_ptr<PanelHost> host) {
    std::lock_guard lock(Slot().mutex);
    std::shared_ptr<PanelHost> previous = std::move(Slot().installed);
    Slot().installed = std::move(host);
    return previous;
}

IStageRef GetStage(std::int32_t stageID) {
    return PanelHost::GetInstance().GetStage(stageID);
}
void ParkStage(std::int32_t stageID) {
    PanelHost::GetInstance().ParkStage(stageID);
}
void UnparkStage(std::int32_t stageID) {
    PanelHost::GetInstance().UnparkStage(stageID);
}
void UnloadStage(std::int32_t stageID) {
    PanelHost::GetInstance().UnloadStage(stageID);
}
IExtensionRef GetExtensionByID(const std::string& extensionID) {
    return PanelHost::GetInstance().GetExtensionByID(extensionID);
}
IExtensionRef GetExtensionByIndex(std::size_t index) {
    return PanelHost::GetInstance().GetExtensionByIndex(index);
}
std::size_t GetNumExtensions() {
    return PanelHost::GetInstance().GetNumExtensions();
}

Fnd::WString GetMinimumMetadataIDStr() {
    return u"igd.panel.minimumMetadata";
}

Fnd::WString GetInfoForProperty(Fnd::WStringView data, std::string_view name, bool searchWholeDocument) {
    Fnd::SafeXmlParser parser;
    const xercesc::DOMDocument* document = parser.Parse(Fnd::ToUTF8(data));
    if (!document)
        return {};
    const Fnd::WString wideName = Fnd::FromUTF8(name);
    const xercesc::DOMElement* root = document->getDocumentElement();
    const xercesc::DOMElement* carrier =
        searchWholeDocument ? FindCarrier(*root, wideName.c_str()) : root;
    if (!carrier || !carrier->getAttributeNode(wideName.c_str()))
        return {};
    return Fnd::WString(carrier->getAttribute(wideName.c_str()));
}

namespace Event {
Fnd::WString GetPanelkitEventTypeMinimumMetadata() {
    return u"igd.panelkit.minimumMetadata";
}
Fnd::WString GetPanelkitEventTypeExtensionUnloaded() {
    return u"igd.panelkit.extensionUnloaded";
}
} // namespace Event

} // namespace PanelkitManager

namespace QL {
Fnd::StationID GetPanelkitStationID() {
    return "IGD.Panelkit";
}
} // namespace QL
