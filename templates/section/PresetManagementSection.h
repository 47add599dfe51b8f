#pragma once
// The frame that the rename and the metadata template share: a preset popup with its action
// menu, the rows of the chosen preset for this ingest (normal mode), or the rows of a working copy
// that the user edits and saves (edit mode). Every save, delete and install goes through here; the
// concrete sections supply rows, checks and where their state is stored.
#include <memory>
#include <string>

#include <boost/intrusive_ptr.hpp>

#include "fluxui/controls/UI_Checkbox.h"
#include "settings/IngestSettingsController.h"
#include "templates/PresetFieldRef.h"
#include "templates/section/PresetStore.h"
#include "transfer/PowerSwitchSectionView.h"

namespace IGD {

class PresetManagementNormalModeHeader;
class PresetManagementEditModeHeader;
class PresetManagementNormalModeFieldsContainer;
class PresetManagementEditModeFieldsContainer;
class PresetManagementAddFieldSection;

class PresetManagementSection : public wrangler::ui::PowerSwitchSectionView {
public:
    PresetManagementSection(const Fnd::WString& title, std::string layoutName,
                            std::shared_ptr<IngestSettingsController> settings);
    ~PresetManagementSection() override;
    const char* UI_GetClassName() const override { return "PresetManagementSection"; }

    // Adds an edit row for the field, with the keyboard focus, and keeps the add-field section in
    // view of the scroll view around the section.
    virtual void AddField(const PresetFieldRef& field);
    // Rebuilds the rows of the present mode; with load, from the current preset (a private copy of
    // it with editCopy), else with none.
    virtual void RefreshFields(bool load, bool editCopy);
    // The fields about to be saved; false, after saying why, when they cannot be.
    virtual bool ValidateFields(QL::PresetFieldList& fields);
    virtual void SetEditMode(bool editing);
    virtual void StoreEnabled(bool enabled) = 0;
    // False, after a stop box, when the name cannot be a preset's.
    virtual bool ValidatePresetName(const Fnd::WString& name);

    // The actions of the menu and the buttons.
    void EnterEditMode(bool isNew);
    // Save: rewrites the preset being edited under name.
    void SaveEditedPreset(const Fnd::WString& name);
    // Save As: asks for a name until one is accepted or the user cancels; works in both modes.
    void SavePresetAs();
    // Leaves edit mode and throws the working copy away.
    void CancelEditing();
    void DeleteCurrentPreset();
    void InstallPresetFile();
    void RevealCurrentPreset();
    void ClearTextFields();
    // Rebuilds the popup and selects the preset (by identity), "<None>" when it is null or gone.
    void ShowPresetAfterChange(const PresetRef& preset);
    // Row 5 of the menu follows whether some text row of normal mode holds text.
    void RefreshClearTextState();

    bool IsEditing() const;
    PresetStore& GetStore() { return store_; }
    const PresetStore& GetStore() const { return store_; }
    IngestSettingsController& Settings() const { return *settings_; }
    const std::shared_ptr<IngestSettingsController>& SettingsRef() const { return settings_; }

    fluxui::controls::UI_Checkbox& GetEnableCheckBox() const { return *enableCheckBox_; }
    PresetManagementNormalModeHeader& GetNormalHeader() const { return *normalHeader_; }
    PresetManagementEditModeHeader& GetEditHeader() const { return *editHeader_; }
    PresetManagementNormalModeFieldsContainer& GetNormalFields() const { return *normalFields_; }
    PresetManagementEditModeFieldsContainer& GetEditFields() const { return *editFields_; }
    PresetManagementAddFieldSection& GetAddField() const { return *addField_; }

protected:
    // A subclass that overrides these calls them first.
    void BindControls() override;
    void WireControls() override;
    // Every section starts in normal mode.
    void ChildrenBuilt() override;

    // For the concrete LoadFromSettings, before anything else.
    void LoadStore(QL::_QLPresetCategory category);
    // The stored enable state on checkbox, switch and children, without storing or notifying.
    void ApplyStoredEnabled(bool enabled);

    // The concrete CreateChildSections makes the five children, remembers them here and inserts
    // them in its order.
    boost::intrusive_ptr<fluxui::controls::UI_Checkbox> enableCheckBox_;
    boost::intrusive_ptr<PresetManagementNormalModeHeader> normalHeader_;
    boost::intrusive_ptr<PresetManagementEditModeHeader> editHeader_;
    boost::intrusive_ptr<PresetManagementNormalModeFieldsContainer> normalFields_;
    boost::intrusive_ptr<PresetManagementEditModeFieldsContainer> editFields_;
    boost::intrusive_ptr<PresetManagementAddFieldSection> addField_;

private:
    // The fields of the rows of the present mode; false when a row refused.
    bool GatherFields(QL::PresetFieldList& fields);
    void PowerTo(bool on);

    PresetStore store_;
    std::shared_ptr<IngestSettingsController> settings_;
};

} // namespace IGD
