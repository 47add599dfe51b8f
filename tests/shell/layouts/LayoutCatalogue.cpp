#include "LayoutCatalogue.h"

namespace igd::test {

namespace {

const std::string Q = "$$$/Quillon/Libraries/IngestDialog/";

std::string Loc(const std::string& key, const std::string& text) {
    return "(" + Q + key + "=" + text + ")";
}
std::string TLoc(const std::string& key, const std::string& text) {
    return Loc("Transfer/" + key, text);
}

CatalogueControl C(std::string id, std::string cls, std::optional<std::string> text = std::nullopt) {
    return {std::move(id), std::move(cls), std::move(text)};
}

} // namespace

std::string DefaultText(const std::string& authored) {
    if (authored.rfind("($$$/", 0) != 0)
        return authored;
    const auto equals = authored.find('=');
    return authored.substr(equals + 1, authored.size() - equals - 2);
}

const std::vector<CatalogueLayout>& LayoutCatalogue() {
    static const std::vector<CatalogueLayout> catalogue{
        {"igdAddDestination",
         200,
         33,
         {C("AddDestinationTextButton", "UI_TextButton", Loc("AddDestination", "Add Destination"))}},
        {"igdKilnHostedBackupDestinationHeader",
         200,
         52,
         {C("BackupDestinationCheckbox", "UI_Checkbox", TLoc("BackupDestination", "Backup Destination:")),
          C("BackupDestinationStaticText", "UI_StaticText",
            TLoc("KilnHostedBackupDestination", "Destination:"))}},
        {"igdKilnHostedPathSetting",
         200,
         32,
         {C("DestinationPopup", "UI_Popup"),
          C("BrowseTextButton", "UI_TextButton", TLoc("BrowseForLocation", "Browse for Location..."))}},
        {"igdKilnHostedPresetManagementNormalModeHeader", 300, 21, {C("PresetPopup", "UI_Popup")}},
        {"igdKilnHostedPrimaryDestinationHeader",
         200,
         23,
         {C("PrimaryDestinationStaticText", "UI_StaticText",
            TLoc("KilnHostedPrimaryDestination", "Destination:"))}},
        {"igdKilnHostedTranscodeSetting",
         200,
         91,
         {C("DetailSettingsView", "UI_SubView"), C("FormatPopup", "UI_Popup"),
          C("PresetStaticText", "UI_StaticText", TLoc("Preset", "Preset:")), C("PresetPopup", "UI_Popup"),
          C("FormatStaticText", "UI_StaticText", TLoc("Format", "Format:"))}},
        {"igdKilnHostedTransferHeader",
         200,
         30,
         {C("TransferClipsCheckbox", "UI_Checkbox",
            TLoc("KilnHostedTransferClips", "Copy files to Destination"))}},
        {"igdBackupDestinationHeader",
         200,
         51,
         {C("RemovePictureButton", "UI_PictureButton"),
          C("BackupDestinationCheckbox", "UI_Checkbox", TLoc("BackupDestination", "Backup Destination:"))}},
        {"igdConcatenateSetting",
         200,
         64,
         {C("ConcatenateCheckbox", "UI_Checkbox", TLoc("StitchClipsTogether", "Stitch Clips Together")),
          C("ConcatenateStaticText", "UI_StaticText", TLoc("Name", "Name:")),
          C("ConcatenateTextEdit", "UI_TextEdit_S")}},
        {"igdDivider", 200, 5, {}},
        {"igdVaultDestinationHeader",
         200,
         24,
         {C("TempLocalCopyCheckbox", "UI_Checkbox", TLoc("TransferClips", "Transfer Clips to Destination"))}},
        {"igdVaultTransferHeader",
         200,
         52,
         {C("UI_StaticText", "UI_StaticText", TLoc("VaultDestination", "Destination:")),
          C("DestinationStaticText", "UI_StaticText")}},
        {"igdLocalTransferHeader",
         200,
         30,
         {C("TransferClipsCheckbox", "UI_Checkbox", TLoc("TransferClips", "Transfer Clips to Destination"))}},
        {"igdMetadataTemplateAddField",
         140,
         33,
         {C("UI_PictureButton", "UI_PictureButton"), C("SaveButton", "UI_PictureButton"),
          C("SaveAsButton", "UI_PictureButton"), C("CancelButton", "UI_PictureButton")}},
        {"igdMetadataTemplateEditModeField",
         200,
         54,
         {C("UI_MoveUpwardButton", "UI_PictureButton"), C("UI_MoveDownwardButton", "UI_PictureButton"),
          C("MetadataKey", "UI_TextEdit_S"), C("MetadataValue", "UI_TextEdit_S"),
          C("UI_StaticText", "UI_StaticText", "*"), C("UI_Checkbox", "UI_Checkbox"),
          C("UI_RemoveButton", "UI_PictureButton")}},
        {"igdMetadataTemplateEditModeHeader",
         200,
         51,
         {C("UI_StaticText", "UI_StaticText", Loc("RenamePresetName", "Preset Name:")),
          C("PresetName", "UI_StaticText")}},
        {"igdMetadataTemplateHeader",
         200,
         25,
         {C("EnableManagementCheckBox", "UI_Checkbox", Loc("AddFileMetadata", "Add File Metadata"))}},
        {"igdMetadataTemplateNormalModeField",
         150,
         50,
         {C("UI_StaticText", "UI_StaticText"), C("AutoHintTextEdit", "UI_TextEdit_S")}},
        {"igdPathSetting",
         200,
         72,
         {C("DestinationPopup", "UI_Popup"),
          C("BrowseTextButton", "UI_TextButton", TLoc("BrowseForLocation", "Browse for Location...")),
          C("AddSubfolderCheckbox", "UI_Checkbox", TLoc("AddSubFolder", "Add Subfolder")),
          C("AddSubfolderTextEdit", "UI_TextEdit_S")}},
        {"igdPresetManagementNormalModeHeader",
         300,
         52,
         {C("ApplyScopePopup", "UI_Popup"), C("PresetPopup", "UI_Popup")}},
        {"igdPrimaryDestinationHeader",
         200,
         23,
         {C("PrimaryDestinationStaticText", "UI_StaticText",
            TLoc("PrimaryDestination", "Primary Destination:"))}},
        {"igdRenameTemplateAddField",
         140,
         33,
         {C("UI_PicturePopup", "UI_PicturePopup"), C("SaveButton", "UI_PictureButton"),
          C("SaveAsButton", "UI_PictureButton"), C("CancelButton", "UI_PictureButton")}},
        {"igdRenameTemplateEditModeField",
         150,
         38,
         {C("UI_MoveUpwardButton", "UI_PictureButton"), C("UI_MoveDownwardButton", "UI_PictureButton"),
          C("UI_Popup", "UI_Popup"), C("AutoHintTextEdit", "UI_TextEdit_S"),
          C("UI_RemoveButton", "UI_PictureButton"), C("UI_OutlineBox", "UI_OutlineBox"),
          C("UI_StaticText", "UI_StaticText")}},
        {"igdRenameTemplateEditModeHeader",
         200,
         57,
         {C("UI_StaticText", "UI_StaticText", Loc("RenamePresetName", "Preset Name:")),
          C("PresetName", "UI_StaticText")}},
        {"igdRenameTemplateHeader",
         200,
         25,
         {C("EnableManagementCheckBox", "UI_Checkbox", Loc("RenameFiles", "Rename Files"))}},
        {"igdRenameTemplateNormalModeField",
         300,
         26,
         {C("AutoHintTextEdit", "UI_TextEdit_S"), C("UI_OutlineBox", "UI_OutlineBox"),
          C("UI_StaticText", "UI_StaticText"), C("UI_UserDefStartNumber", "UI_NumberEdit", "1"),
          C("UI_FieldTypeLabel", "UI_StaticText")}},
        {"igdRenameTemplateSample",
         200,
         45,
         {C("UI_StaticText", "UI_StaticText", Loc("RenameSample", "Sample:")),
          C("SampleText", "UI_StaticText")}},
        {"igdSummaryCategory", 200, 25, {C("UI_StaticText", "UI_StaticText")}},
        {"igdSummaryDetail", 200, 19, {C("UI_StaticText", "UI_StaticText")}},
        {"igdSummaryEmptyBottom", 100, 5, {}},
        {"igdTranscodeSetting",
         200,
         106,
         {C("TranscodeCheckbox", "UI_Checkbox", TLoc("Transcode", "Transcode")),
          C("DetailSettingsView", "UI_SubView"),
          C("FormatStaticText", "UI_StaticText", TLoc("Format", "Format:")), C("FormatPopup", "UI_Popup"),
          C("PresetStaticText", "UI_StaticText", TLoc("Preset", "Preset:")), C("PresetPopup", "UI_Popup")}},
        {"igdVerifySetting",
         200,
         47,
         {C("VerifyCheckbox", "UI_Checkbox", TLoc("Verify", "Verify")), C("VerifyPopup", "UI_Popup")}},
    };
    return catalogue;
}

} // namespace igd::test
