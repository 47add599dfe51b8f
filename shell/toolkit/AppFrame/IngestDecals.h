#pragma once
// The images of the dialog's picture buttons, by the name an image provider looks up: family,
// size class and state, without prefix or scale.
//
// States: N is the neutral grey, S the highlight. A trailing _D is the dimmed tone that a button
// face shows at rest; the presenter brightens it while pressed and greys it out when disabled, so
// the decals all use it. The plain N of a few families is the full-strength grey for pictures
// drawn without a button around them.
namespace AppFrame {

inline constexpr char kIngestPowerOnNormalDecal[] = "POWER_SM_S_D";
inline constexpr char kIngestPowerOffNormalDecal[] = "POWER_SM_N_D";
// Save has only a vector master: next to Save As it must read as the plain disk.
inline constexpr char kSaveNormalDecal[] = "SAVE_MD_N_D";
inline constexpr char kSaveAsNormalDecal[] = "SAVEAS_MD_N_D";
inline constexpr char kCancelSaveNormalDecal[] = "CLOSE_XS_N_D";
inline constexpr char kNewItemNormalDecal[] = "ADD_SM_N_D";
inline constexpr char kNewOneItemNormalDecal[] = "ADDTRI_MD_N_D";
inline constexpr char kDeleteNormalDecal[] = "DELETE_WI_N_D";
inline constexpr char kIngestMoveUpNormalDecal[] = "SORTUP_XS_N_D";
inline constexpr char kIngestMoveDownNormalDecal[] = "SORTDOWN_XS_N_D";

} // namespace AppFrame
