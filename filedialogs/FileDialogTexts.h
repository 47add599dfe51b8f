#pragma once
// The texts of the file dialogs, each with its key and default in one place.

namespace IGD::FileDialogTexts {

inline constexpr const char* kAllSupportedMedia =
    "$$$/Quillon/Libraries/Dialogs/FileDialogs/AllSupportedMedia=All Supported Media";
inline constexpr const char* kInvalidFilePath =
    "$$$/Quillon/Libraries/Dialogs/FileDialogs/InvalidFilePath=Invalid File Path";
inline constexpr const char* kConfirmFileReplacement =
    "$$$/Quillon/Libraries/Dialogs/FileDialogs/ConfirmFileReplacement=Confirm File Replacement";
inline constexpr const char* kReplaceTemplate =
    "$$$/Quillon/Libraries/Dialogs/FileDialogs/ReplaceTemplate=The file \"@0\" already exists. Are you sure "
    "you "
    "want to replace it?";
inline constexpr const char* kApplicationTitle =
    "$$$/Quillon/Libraries/Dialogs/FileDialogs/VeltrixQuillon=Veltrix Quillon";
inline constexpr const char* kSaveDirectoryNotWriteable =
    "$$$/Quillon/Libraries/Dialogs/FileDialogs/SaveDirectoryNotWriteable=You do not have write access to "
    "this "
    "directory. Please choose a new location to save the file.";
inline constexpr const char* kFolderChooserCaption =
    "$$$/Quillon/Libraries/IngestDialog/FolderChooserCaption=Choose Destination Folder";

// The icons of the frame's boxes that these dialogs use.
inline constexpr int kBoxIconWarning = 4;
inline constexpr int kBoxIconStop = 128;

} // namespace IGD::FileDialogTexts
