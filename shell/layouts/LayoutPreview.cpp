#include "IGD/LayoutPreview.h"

#include <algorithm>
#include <map>
#include <set>

#include "shell/AutoHintTextEdit.h"
#include "shell/resources/IngestResources.h"
#include "shell/resources/ResourceStore.h"
#include "fluxui/controls/UI_PictureButton.h"
#include "fluxui/controls/UI_PicturePopup.h"
#include "fluxui/controls/UI_ScrollView.h"
#include "fluxui/controls/UI_SectionView.h"
#include "fluxui/ui/UI_LayoutView.h"

namespace IGD {
namespace {

using fluxcore::geom::RectF;

const char* const kCatalogue[] = {
    "igdAddDestination",
    "igdKilnHostedBackupDestinationHeader",
    "igdKilnHostedPathSetting",
    "igdKilnHostedPresetManagementNormalModeHeader",
    "igdKilnHostedPrimaryDestinationHeader",
    "igdKilnHostedTranscodeSetting",
    "igdKilnHostedTransferHeader",
    "igdBackupDestinationHeader",
    "igdConcatenateSetting",
    "igdDivider",
    "igdVaultDestinationHeader",
    "igdVaultTransferHeader",
    "igdLocalTransferHeader",
    "igdMetadataTemplateAddField",
    "igdMetadataTemplateEditModeField",
    "igdMetadataTemplateEditModeHeader",
    "igdMetadataTemplateHeader",
    "igdMetadataTemplateNormalModeField",
    "igdPathSetting",
    "igdPresetManagementNormalModeHeader",
    "igdPrimaryDestinationHeader",
    "igdRenameTemplateAddField",
    "igdRenameTemplateEditModeField",
    "igdRenameTemplateEditModeHeader",
    "igdRenameTemplateHeader",
    "igdRenameTemplateNormalModeField",
    "igdRenameTemplateSample",
    "igdSummaryCategory",
    "igdSummaryDetail",
    "igdSummaryEmptyBottom",
    "igdTranscodeSetting",
    "igdVerifySetting",
};

std::string Upper(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::toupper(c)); });
    return text;
}

// The decal each picture control of the layouts shows once its section binds it.
const std::map<std::string, int>& DecalsById() {
    static const std::map<std::string, int> decals = {
        {"SaveButton", 2},          {"SaveAsButton", 3},        {"CancelButton", 4},
        {"UI_PictureButton", 5},    {"UI_PicturePopup", 6},     {"UI_RemoveButton", 7},
        {"RemovePictureButton", 7}, {"UI_MoveUpwardButton", 8}, {"UI_MoveDownwardButton", 9},
    };
    return decals;
}

void BindDecals(fluxui::ui::UI_Node& node) {
    const auto decal = DecalsById().find(node.UI_GetNodeID());
    if (decal != DecalsById().end()) {
        if (auto* button = dynamic_cast<fluxui::controls::UI_PictureButton*>(&node))
            button->SetImageSupplyFunction(IGD::IngestResources::ImageSupplyFunction(decal->second));
        else if (auto* popup = dynamic_cast<fluxui::controls::UI_PicturePopup*>(&node))
            popup->SetImageSupplyFunction(IGD::IngestResources::ImageSupplyFunction(decal->second));
    }
    for (auto child = node.ChildBegin(); child != node.ChildEnd(); ++child)
        BindDecals(**child);
}

fluxui::ui::UI_NodeRef MakeCustomControl(const Fnd::WString& className) {
    if (className == u"AutoHintTextEdit")
        return new IGD::AutoHintTextEdit;
    return nullptr;
}

} // namespace

std::vector<std::string> LayoutNames() {
    std::vector<std::string> names;
    std::set<std::string> known;
    for (const char* name : kCatalogue) {
        if (!IGD::FindStoredResource("XML", name).empty())
            names.push_back(name);
        known.insert(Upper(name));
    }
    for (std::string_view stored : IGD::StoredResourceNames("XML"))
        if (!known.count(std::string(stored)))
            names.emplace_back(stored);
    return names;
}

LayoutPreview BuildLayoutPreview(const std::string& name, float width) {
    IGD::IngestResources::Create(nullptr);
    LayoutPreview preview;
    preview.name = name;
    preview.root = fluxui::ui::UI_NodeBuilder::LoadViewFromXML(*IGD::IngestResources::GetResourceManager(),
                                                               IGD::IngestResources::GetDrawSupplier(), name,
                                                               preview.controls, MakeCustomControl);
    if (!preview.root)
        throw fluxui::ui::LayoutError(name + ": no such layout");
    BindDecals(*preview.root);
    // A section stretches its layout across the dialog; the height stays as authored.
    const RectF authored = preview.root->UI_GetLocalRectF(true);
    preview.root->UI_SetLocalRectF({0.0f, 0.0f, width, authored.height});
    return preview;
}

fluxui::ui::UI_NodeRef BuildSectionStack(const std::vector<LayoutPreview>& layouts, float width,
                                         float height) {
    using fluxui::controls::UI_ScrollView;
    using fluxui::controls::UI_SectionView;
    const float inner = width - UI_ScrollView::kScrollBarSize;
    boost::intrusive_ptr<fluxui::ui::UI_LayoutView> stack(new fluxui::ui::UI_LayoutView);
    boost::intrusive_ptr<UI_ScrollView> scroll(new UI_ScrollView(0, stack));
    scroll->UI_SetLocalRectF({0.0f, 0.0f, width, height});
    stack->UI_SetLocalRectF({0.0f, 0.0f, inner, 0.0f});

    // Raw pointers: the callbacks live in sections that the stack owns, inside the scroll view.
    UI_ScrollView* view = scroll.get();
    fluxui::ui::UI_LayoutView* column = stack.get();
    const auto refit = [view, column, inner] {
        column->Relayout();
        fluxcore::geom::RectF rect = view->GetContentRectF();
        rect.width = inner;
        rect.height = column->GetNeededExtent();
        view->SetContentRectF(rect);
    };
    for (const LayoutPreview& layout : layouts) {
        boost::intrusive_ptr<UI_SectionView> section(new UI_SectionView(Fnd::FromUTF8(layout.name)));
        const float layoutHeight = layout.root->UI_GetLocalRectF().height;
        section->UpdateSize({0.0f, 0.0f, inner, 0.0f});
        fluxui::ui::UI_SubView& content = section->GetContentView();
        content.UI_SetLocalRectF({0.0f, section->GetHeaderHeight(), inner, layoutHeight});
        layout.root->UI_SetLocalRectF({0.0f, 0.0f, inner, layoutHeight});
        content.ChildPushBack(layout.root);
        section->UpdateSize({0.0f, 0.0f, inner, 0.0f});
        UI_SectionView* raw = section.get();
        section->AddOpenedStateChangedCallback([raw, refit](bool) {
            raw->UpdateSize(raw->UI_GetLocalRectF(true));
            refit();
        });
        stack->ChildPushBack(section);
    }
    refit();
    return scroll;
}

const fluxui::utility::ResourceManager* IngestResourceManager() {
    IngestResources::Create(nullptr);
    return IngestResources::GetResourceManager();
}

} // namespace IGD
