#pragma once
#include <cstdint>

namespace QL {

enum _QLPresetCategory : int {
    kQLPresetCategoryRename = 0,
    kQLPresetCategoryMetadata = 1,
};

// Answer of SavePreset and DeletePreset: zero or above is success, negative a failure.
using QLPresetStatus = std::int32_t;

inline constexpr QLPresetStatus kPresetOK = 0;
// Never answered by the service: the dialog's own save answers it when it holds no manager.
inline constexpr QLPresetStatus kPresetNoManager = static_cast<QLPresetStatus>(0xA00F0001u);
// SavePreset without overwrite found a user preset file of that name (ignoring the case of A to
// Z, so that "Day" and "day" never stand side by side in the popup).
inline constexpr QLPresetStatus kPresetNameExists = static_cast<QLPresetStatus>(0xA06401C2u);
// The name fails QL::IsUsablePresetName (QL/PresetNames.h).
inline constexpr QLPresetStatus kPresetInvalidName = static_cast<QLPresetStatus>(0xA06401C3u);
// A system preset, or a preset that lives outside this manager's user folder: never written.
inline constexpr QLPresetStatus kPresetReadOnly = static_cast<QLPresetStatus>(0xA06401C4u);
// The disk refused the write or the removal; nothing was changed.
inline constexpr QLPresetStatus kPresetWriteFailed = static_cast<QLPresetStatus>(0xA06401C5u);
// The preset was never saved, so there is no file to remove.
inline constexpr QLPresetStatus kPresetNotSaved = static_cast<QLPresetStatus>(0xA06401C6u);
// The preset belongs to the other category (a metadata preset handed to a rename manager).
inline constexpr QLPresetStatus kPresetWrongCategory = static_cast<QLPresetStatus>(0xA06401C7u);
// A field cannot be kept in a preset file: a control character in its text, or a type that the
// category does not hold (a metadata field in a rename preset).
inline constexpr QLPresetStatus kPresetInvalidContent = static_cast<QLPresetStatus>(0xA06401C8u);

inline constexpr bool PresetSucceeded(QLPresetStatus status) {
    return status >= 0;
}

} // namespace QL
