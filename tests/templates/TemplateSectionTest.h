#pragma once
// A template section opened as the settings pane opens it, over the file-backed preset service in a
// home of the test's own and a controller of the test's own, with the ways a user works it.
#include <gtest/gtest.h>

#include "IGD/LayoutPreview.h"
#include "QL/FilePresetService.h"
#include "fluxui/dialogs/SimpleInputBox.h"
#include "support/ScopedIgdHome.h"
#include "support/ScriptedInteractionDriver.h"
#include "templates/fields/PresetManagementEditModeFieldsContainer.h"
#include "templates/fields/PresetManagementNormalModeFieldsContainer.h"
#include "templates/section/PresetManagementNormalModeHeader.h"
#include "tests/settings/SettingsFixture.h"
#include "transfer/SectionTree.h"

namespace igd::test {

template <typename Section, QL::_QLPresetCategory kCategory> class TemplateSectionTest : public SettingsFixture {
protected:
    TemplateSectionTest() {
        QL::SetPresetService(std::make_shared<QL::FilePresetService>(QL::DefaultPresetFolders()));
        controller.SetSettingsChangedCallback([this] { ++notifications; });
        // A disabled section takes no clicks.
        SetEnabled(true);
    }
    ~TemplateSectionTest() override {
        section.reset();
        QL::SetPresetService(nullptr);
    }

    void SetEnabled(bool enabled) {
        if (kCategory == QL::kQLPresetCategoryRename)
            controller.SetEnableRenameTemplate(enabled);
        else
            controller.SetEnableMetadataTemplate(enabled);
    }
    Section& Open() {
        // The controller outlives the section: the test owns it.
        section = new Section(std::shared_ptr<IngestSettingsController>(std::shared_ptr<void>(), &controller));
        section->UI_SetLocalRectF({0, 0, 320, 400});
        wrangler::ui::BuildSectionTree(*section, *IngestResourceManager(), nullptr);
        wrangler::ui::ApplySettingsToTree(*section);
        return *section;
    }
    static PresetRef SaveUserPreset(std::u16string_view name, const QL::PresetFieldList& fields) {
        const auto manager = QL::InstantiateQLPresetManager(kCategory);
        PresetRef preset = manager->CreatePreset();
        preset->SetFields(fields);
        const Fnd::WString text(name);
        EXPECT_EQ(manager->SavePreset(preset, text, u"", false, text), QL::kPresetOK);
        return preset;
    }

    PresetManagementNormalModeHeader& Header() const { return section->GetNormalHeader(); }
    void Pick(std::u16string_view name) const {
        auto& popup = Header().GetPresetPopup();
        const auto& items = popup.GetItems();
        for (std::size_t row = 0; row < items.size(); ++row)
            if (items[row].text == name)
                return popup.ChooseByUser(static_cast<int>(row));
        FAIL() << "no preset " << Fnd::ToUTF8(Fnd::WString(name));
    }
    void Menu(int row) const { Header().GetMenuPopup().ChooseByUser(row); }
    std::vector<PresetManagementEditModeField*> EditRows() const { return section->GetEditFields().GetRows(); }
    std::vector<PresetManagementNormalModeField*> NormalRows() const { return section->GetNormalFields().GetRows(); }
    template <typename Control> static Control& In(const wrangler::ui::SectionViewEx& row, const char* id) {
        return dynamic_cast<Control&>(*row.FindControl(id));
    }

    // The next name prompt is answered with text; the text it opened with is kept in promptedWith.
    void AnswerNamePrompt(const Fnd::WString& text) {
        ui->QueueModal([this, text](Fnd::IModalSession& session) {
            auto& box = dynamic_cast<fluxui::dialogs::SimpleInputBox&>(session);
            promptedWith.push_back(box.GetTextEdit().GetValue());
            box.GetTextEdit().TypeText(text);
            box.GetOKButton().Press();
        });
    }
    void CancelNamePrompt() {
        ui->QueueModal([](Fnd::IModalSession& session) {
            dynamic_cast<fluxui::dialogs::SimpleInputBox&>(session).GetCancelButtonView().Press();
        });
    }

    ScopedIgdHome home;
    ScopedInteractionDriver ui;
    boost::intrusive_ptr<Section> section;
    int notifications = 0;
    std::vector<Fnd::WString> promptedWith;
};

} // namespace igd::test
