#pragma once
// The library's image and layout resources for its views: one object per process, made by the
// first dialog or embedded view and released by the dialog or by the host.
#include <array>
#include <memory>

#include "fluxcore/ImmutableString.h"
#include "fluxui/controls/UI_PictureSupplyMessage.h"
#include "fluxui/utility/ImageProvider.h"
#include "fluxui/utility/OS_ResourceManager.h"
#include "fluxui/utility/SketcherImageResourceCache.h"
#include "fluxworkspace/Workspace.h"

namespace IGD {

class IngestResources {
public:
    static constexpr int kDecalCount = 10;

    // Makes the singleton for a workspace, or for none; while one exists this does nothing, so
    // a dialog opened after an embedded view keeps the view's workspace.
    static void Create(fluxworkspace::workspace::Workspace* workspace);
    // Destroys the singleton; nothing when there is none.
    static void Release();
    // The singleton, or null.
    static IngestResources* Instance();

    // The manager the views load their layouts and images from. Asking without a singleton is a
    // fault of the caller and throws Fnd::NullInterfaceException.
    static fluxui::utility::ResourceManager* GetResourceManager();
    // The host's current workspace's supplier, else the singleton's workspace's, else null.
    static fluxui::sketcher::SupplierInterface* GetDrawSupplier();

    // The picture of decal `index` (0 to 9) for the message's state and screen. Without a
    // singleton the message is left without an image. An index outside the table throws
    // std::out_of_range.
    static void SupplyImage(int index, fluxui::controls::UI_PictureSupplyMessage& message);
    // SupplyImage bound to an index, for SetImageSupplyFunction.
    static fluxui::controls::ImageSupplyFunctionPtr ImageSupplyFunction(int index);

    IngestResources(const IngestResources&) = delete;
    IngestResources& operator=(const IngestResources&) = delete;
    ~IngestResources();

    fluxworkspace::workspace::Workspace* GetWorkspace() const { return workspace_; }
    const fluxcore::utility::ImmutableString& GetDecalName(int index) const;
    const fluxui::utility::ImageProvider& GetImageProvider() const { return provider_; }
    const fluxui::utility::SketcherImageResourceCache& GetImageCache() const { return cache_; }

private:
    explicit IngestResources(fluxworkspace::workspace::Workspace* workspace);

    fluxui::utility::OS_ResourceManager manager_;
    fluxui::utility::SketcherImageResourceCache cache_;
    fluxui::utility::ImageProvider provider_;
    std::array<fluxcore::utility::ImmutableString, kDecalCount> decals_;
    fluxworkspace::workspace::Workspace* workspace_;
};

} // namespace IGD
