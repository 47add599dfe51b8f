#pragma once
// Every preference key of the library: its text, the kind of its value and its default, each
// written once. Load, store and the command line's preference editor all read them from here.
#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <type_traits>
#include <variant>

#include "Proj/IPreferences.h"
#include "Proj/PreferenceAccess.h"
#include "QL/TaskPreferences.h"
#include "fluxmediabrowser/BrowserPreferenceKeys.h"

namespace IGD {

// How the keys stored under a name are made from it.
enum class KeyShape {
    kPlain,             // the name is the key
    kIndexed,           // the name and the decimal number of a backup, 1 for the first
    kListPrefix,        // a list of recent paths: its count and items follow the name
    kIndexedListPrefix, // the same for a backup: the name, its number, then the list's keys
    kListCount,         // joined to a list's prefix: the number of items
    kListItem,          // joined to a list's prefix, then the item's number from 0
};

// A list of recent paths is not a value but a family of keys under a prefix.
struct PathList {};

template <class T> struct PreferenceKeyDef {
    std::string_view name;
    T defaultValue;
    KeyShape shape = KeyShape::kPlain;
    // Set where the true default is not a constant; tools show it in place of defaultValue.
    std::string_view defaultNote = {};
    // For a text that names one of a few things: the names it may hold.
    std::span<const std::string_view> choices = {};
};

inline constexpr PreferenceKeyDef<std::uint32_t> kPathsMRUCount{
    "IGD.IngestDestinationSettingImpl.PathsMRUCount", 0, KeyShape::kListCount};
inline constexpr PreferenceKeyDef<std::u16string_view> kPathsMRUItem{
    "IGD.IngestDestinationSettingImpl.PathsMRUItem", u"", KeyShape::kListItem};
inline constexpr PreferenceKeyDef<bool> kTransferSectionOpened{
    "IGD.IngestDestinationSettingImpl.TransferSectionOpened", true};
inline constexpr PreferenceKeyDef<bool> kVaultTempLocalCopy{
    "IGD.IngestDestinationSettingImpl.Vault.TempLocalCopy", false};
inline constexpr PreferenceKeyDef<bool> kLocalImportOnly{"IGD.IngestDestinationSettingImpl.Local.ImportOnly",
                                                         true, KeyShape::kPlain,
                                                         "true; false for hosted kinds 5 and 8"};
// The bits of a signed row: 4294967295 is -1, no verification.
inline constexpr PreferenceKeyDef<std::uint32_t> kLocalVerifyOption{
    "IGD.IngestDestinationSettingImpl.Local.VerifyOption", 0};
// Which checksum the verify option's checksum row (0) compares; MD5 unless the user picks another.
inline constexpr std::array<std::string_view, 4> kVerifyChecksumNames{"md5", "xxh128", "xxh3", "xxh64"};
inline constexpr PreferenceKeyDef<std::u16string_view> kLocalVerifyChecksum{
    "IGD.IngestDestinationSettingImpl.Local.VerifyChecksum", u"md5", KeyShape::kPlain, {}, kVerifyChecksumNames};
inline constexpr PreferenceKeyDef<bool> kRenameSectionOpened{
    "IGD.IngestDestinationSettingImpl.RenameSectionOpened", true};
inline constexpr PreferenceKeyDef<bool> kMetadataSectionOpened{
    "IGD.IngestDestinationSettingImpl.MetadataSectionOpened", true};
inline constexpr PreferenceKeyDef<bool> kEnableRenameTemplate{
    "IGD.IngestDestinationSettingImpl.EnableRenameTemplate", false};
inline constexpr PreferenceKeyDef<bool> kEnableMetadataTemplate{
    "IGD.IngestDestinationSettingImpl.EnableMetadataTemplate", false};
inline constexpr PreferenceKeyDef<std::uint32_t> kRenameApplyScope{
    "IGD.IngestDestinationSettingImpl.RenameApplyScope", 0};
inline constexpr PreferenceKeyDef<std::uint32_t> kMetadataApplyScope{
    "IGD.IngestDestinationSettingImpl.MetadataApplyScope", 0};
inline constexpr PreferenceKeyDef<std::u16string_view> kRenamePresetPath{
    "IGD.IngestDestinationSettingImpl.RenamePresetPath", u""};
inline constexpr PreferenceKeyDef<std::u16string_view> kMetadataPresetPath{
    "IGD.IngestDestinationSettingImpl.MetadataPresetPath", u"", KeyShape::kPlain,
    "the value of IGD.IngestDestinationSettingImpl.RenamePresetPath"};
inline constexpr PreferenceKeyDef<PathList> kPrimaryDestPathMRU{
    "IGD.IngestDestinationSettingImpl.Primary.DestPathMRU", {}, KeyShape::kListPrefix};
// "Pimary" is how the key has always been spelled; stores in use hold it so.
inline constexpr PreferenceKeyDef<bool> kPrimaryNeedSubFolder{
    "IGD.IngestDestinationSettingImpl.Pimary.NeedSubFolder", true};
inline constexpr PreferenceKeyDef<bool> kPrimaryTranscode{
    "IGD.IngestDestinationSettingImpl.Primary.Transcode", false};
inline constexpr PreferenceKeyDef<std::u16string_view> kPrimaryTranscodeExporter{
    "IGD.IngestDestinationSettingImpl.Primary.TranscodeExporter", u""};
inline constexpr PreferenceKeyDef<std::u16string_view> kPrimaryTranscodePreset{
    "IGD.IngestDestinationSettingImpl.Primary.TranscodePreset", u""};
// Despite its name a flag: whether the primary's clips are stitched together.
inline constexpr PreferenceKeyDef<bool> kPrimaryConcatenatePreset{
    "IGD.IngestDestinationSettingImpl.Primary.ConcatenatePreset", false};
inline constexpr PreferenceKeyDef<std::uint32_t> kLocalBackupCount{
    "IGD.IngestDestinationSettingImpl.Local.Backup.Count", 0};
inline constexpr PreferenceKeyDef<bool> kLocalBackupEnabled{
    "IGD.IngestDestinationSettingImpl.Local.Backup.Enabled", false, KeyShape::kIndexed};
inline constexpr PreferenceKeyDef<PathList> kLocalBackupDestPathMRU{
    "IGD.IngestDestinationSettingImpl.Local.Backup.DestPathMRU", {}, KeyShape::kIndexedListPrefix};
inline constexpr PreferenceKeyDef<bool> kLocalBackupNeedSubFolder{
    "IGD.IngestDestinationSettingImpl.Local.Backup.NeedSubFolder", true, KeyShape::kIndexed};
inline constexpr PreferenceKeyDef<bool> kLocalBackupTranscode{
    "IGD.IngestDestinationSettingImpl.Local.Backup.Transcode", false, KeyShape::kIndexed};
inline constexpr PreferenceKeyDef<std::u16string_view> kLocalBackupTranscodeExporter{
    "IGD.IngestDestinationSettingImpl.Local.Backup.TranscodeExporter", u"", KeyShape::kIndexed};
inline constexpr PreferenceKeyDef<std::u16string_view> kLocalBackupTranscodePreset{
    "IGD.IngestDestinationSettingImpl.Local.Backup.TranscodePreset", u"", KeyShape::kIndexed};
inline constexpr PreferenceKeyDef<std::uint32_t> kUserDefAutoIncStartNumber{
    "IGD.IngestDestinationSettingImpl.UserDefAutoIncStartNumber", 1};

// Keys of the dialog and the metadata panel, which other parts of the library read and write.
inline constexpr PreferenceKeyDef<std::int32_t> kMainDialogLeft{
    "IngestDialog.mainDialog.Left", 0, KeyShape::kPlain, "computed from the main window"};
inline constexpr PreferenceKeyDef<std::int32_t> kMainDialogTop{
    "IngestDialog.mainDialog.Top", 0, KeyShape::kPlain, "computed from the main window"};
inline constexpr PreferenceKeyDef<std::int32_t> kMainDialogWidth{
    "IngestDialog.mainDialog.Width", 0, KeyShape::kPlain, "computed from the main window"};
inline constexpr PreferenceKeyDef<std::int32_t> kMainDialogHeight{
    "IngestDialog.mainDialog.Height", 0, KeyShape::kPlain, "computed from the main window"};
inline constexpr PreferenceKeyDef<float> kMainDialogSplitterPercent{"IngestDialog.mainDialog.SplitterPercent",
                                                                    0.68f};
inline constexpr PreferenceKeyDef<bool> kMinimumMetadataDialogEnable{"DLG.MinimumMetadataDialog.Enable",
                                                                     true};
// The task service's key; the transcode sections read it when they open.
inline constexpr PreferenceKeyDef<bool> kKeepTranscodeState{QL::kPrefsKeepTranscodeState, false};
// The media browser's own; it reads them when it opens.
inline constexpr PreferenceKeyDef<std::u16string_view> kBrowserFavoriteDirectories{
    fluxmediabrowser::kPrefsFavoriteDirectories, u""};
inline constexpr PreferenceKeyDef<std::u16string_view> kBrowserRecentDirectories{
    fluxmediabrowser::kPrefsRecentDirectories, u""};
inline constexpr std::array<std::string_view, 2> kBrowserViewModeNames{"list", "icons"};
inline constexpr PreferenceKeyDef<std::u16string_view> kBrowserViewMode{
    fluxmediabrowser::kPrefsViewMode, u"list", KeyShape::kPlain, {}, kBrowserViewModeNames};
inline constexpr PreferenceKeyDef<std::u16string_view> kBrowserColumns{fluxmediabrowser::kPrefsColumns, u""};
// Reserved: nothing reads or writes it.
inline constexpr std::string_view kTransferCurrentKey = "IngestDialog.transfer.current";

// A key of either table as tools see it.
using DefaultValue =
    std::variant<std::monostate, bool, std::int32_t, std::uint32_t, float, std::u16string_view>;
struct PreferenceKeyInfo {
    std::string_view name;
    std::optional<Proj::ValueKind> kind; // none for a list prefix
    KeyShape shape;
    DefaultValue defaultValue;
    std::string_view defaultNote;
    std::span<const std::string_view> choices;
};

template <class T> constexpr std::optional<Proj::ValueKind> KindOfDefault() {
    if constexpr (std::is_same_v<T, PathList>)
        return std::nullopt;
    else if constexpr (std::is_same_v<T, std::u16string_view>)
        return Proj::ValueKind::kString;
    else
        return Proj::ValueKindOf<T>::value;
}

template <class T> constexpr PreferenceKeyInfo Describe(const PreferenceKeyDef<T>& key) {
    if constexpr (std::is_same_v<T, PathList>)
        return {key.name, std::nullopt, key.shape, std::monostate{}, key.defaultNote, key.choices};
    else
        return {key.name, KindOfDefault<T>(), key.shape, key.defaultValue, key.defaultNote, key.choices};
}

// The 29 keys of IngestSettingsController, in the order of their definition.
inline constexpr std::array kSettingsControllerKeys = {
    Describe(kPathsMRUCount),
    Describe(kPathsMRUItem),
    Describe(kTransferSectionOpened),
    Describe(kVaultTempLocalCopy),
    Describe(kLocalImportOnly),
    Describe(kLocalVerifyOption),
    Describe(kLocalVerifyChecksum),
    Describe(kRenameSectionOpened),
    Describe(kMetadataSectionOpened),
    Describe(kEnableRenameTemplate),
    Describe(kEnableMetadataTemplate),
    Describe(kRenameApplyScope),
    Describe(kMetadataApplyScope),
    Describe(kRenamePresetPath),
    Describe(kMetadataPresetPath),
    Describe(kPrimaryDestPathMRU),
    Describe(kPrimaryNeedSubFolder),
    Describe(kPrimaryTranscode),
    Describe(kPrimaryTranscodeExporter),
    Describe(kPrimaryTranscodePreset),
    Describe(kPrimaryConcatenatePreset),
    Describe(kLocalBackupCount),
    Describe(kLocalBackupEnabled),
    Describe(kLocalBackupDestPathMRU),
    Describe(kLocalBackupNeedSubFolder),
    Describe(kLocalBackupTranscode),
    Describe(kLocalBackupTranscodeExporter),
    Describe(kLocalBackupTranscodePreset),
    Describe(kUserDefAutoIncStartNumber),
};

inline constexpr std::array kDialogKeys = {
    Describe(kMainDialogLeft),
    Describe(kMainDialogTop),
    Describe(kMainDialogWidth),
    Describe(kMainDialogHeight),
    Describe(kMainDialogSplitterPercent),
    Describe(kMinimumMetadataDialogEnable),
    Describe(kKeepTranscodeState),
    Describe(kBrowserFavoriteDirectories),
    Describe(kBrowserRecentDirectories),
    Describe(kBrowserViewMode),
    Describe(kBrowserColumns),
};

// The key of a backup's value: the name and the backup's number, "...Enabled1" for the first.
Proj::PreferenceKey IndexedKey(std::string_view name, std::uint32_t index);

// The keys of a list of recent paths, whose prefix is the list's own key text.
Proj::PreferenceKey PathListCountKey(std::string_view prefix);
Proj::PreferenceKey PathListItemKey(std::string_view prefix, std::uint32_t item);

// Reading and writing a key of the tables, checked as every preference is (Proj/PreferenceAccess.h).
template <class T, class V>
void ReadPreference(Proj::IPreferences& preferences, const PreferenceKeyDef<T>& key, V& value) {
    Proj::ReadPreference(preferences, Proj::PreferenceKey(key.name), value);
}
template <class T, class V>
void WritePreference(Proj::IPreferences& preferences, const PreferenceKeyDef<T>& key, const V& value) {
    Proj::WritePreference(preferences, Proj::PreferenceKey(key.name), value);
}

} // namespace IGD
