#include "shell/resources/IngestResources.h"

#include <stdexcept>
#include <string>

#include "Fnd/NullInterfaceException.h"
#include "AppFrame/IngestDecals.h"
#include "AppFrame/Workspace.h"
#include "shell/resources/ResourceStore.h"

namespace IGD {
namespace {

// Used on the UI thread only, like every view that reaches it: no lock.
std::unique_ptr<IngestResources>& Singleton() {
    static std::unique_ptr<IngestResources> singleton;
    return singleton;
}

fluxui::sketcher::SupplierInterface* SupplierOf(fluxworkspace::workspace::Workspace* workspace) {
    return workspace ? workspace->GetDrawSupplier() : nullptr;
}

void CheckDecalIndex(int index) {
    if (index < 0 || index >= IngestResources::kDecalCount)
        throw std::out_of_range("no decal " + std::to_string(index));
}

} // namespace

IngestResources::IngestResources(fluxworkspace::workspace::Workspace* workspace)
    : manager_(&FindStoredResource), provider_(&manager_, SupplierOf(workspace), &cache_),
      decals_{AppFrame::kIngestPowerOnNormalDecal, AppFrame::kIngestPowerOffNormalDecal,
              AppFrame::kSaveNormalDecal,          AppFrame::kSaveAsNormalDecal,
              AppFrame::kCancelSaveNormalDecal,    AppFrame::kNewItemNormalDecal,
              AppFrame::kNewOneItemNormalDecal,    AppFrame::kDeleteNormalDecal,
              AppFrame::kIngestMoveUpNormalDecal,  AppFrame::kIngestMoveDownNormalDecal},
      workspace_(workspace) {}

IngestResources::~IngestResources() = default;

void IngestResources::Create(fluxworkspace::workspace::Workspace* workspace) {
    if (!Singleton())
        Singleton().reset(new IngestResources(workspace));
}

void IngestResources::Release() {
    Singleton().reset();
}

IngestResources* IngestResources::Instance() {
    return Singleton().get();
}

fluxui::utility::ResourceManager* IngestResources::GetResourceManager() {
    if (!Singleton())
        throw Fnd::NullInterfaceException("the ingest resources are not created");
    return &Singleton()->manager_;
}

fluxui::sketcher::SupplierInterface* IngestResources::GetDrawSupplier() {
    if (AppFrame::Workspace* host = AppFrame::Workspace::Instance())
        return SupplierOf(host->GetPtr());
    return Singleton() ? SupplierOf(Singleton()->workspace_) : nullptr;
}

const fluxcore::utility::ImmutableString& IngestResources::GetDecalName(int index) const {
    CheckDecalIndex(index);
    return decals_[static_cast<std::size_t>(index)];
}

void IngestResources::SupplyImage(int index, fluxui::controls::UI_PictureSupplyMessage& message) {
    CheckDecalIndex(index);
    // A presenter may repaint while a dialog tears down after the release; it gets no picture.
    if (!Singleton())
        return;
    Singleton()->provider_.ProvideImage(Singleton()->GetDecalName(index).str(), message, false);
}

fluxui::controls::ImageSupplyFunctionPtr IngestResources::ImageSupplyFunction(int index) {
    CheckDecalIndex(index);
    return std::make_shared<fluxui::controls::ImageSupplyFunction>(
        [index](fluxui::controls::UI_PictureSupplyMessage& message) { SupplyImage(index, message); });
}

} // namespace IGD
