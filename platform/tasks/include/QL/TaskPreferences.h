#pragma once
// Preference keys of the task service that its clients read.
#include <string_view>

namespace QL {

// A bool, false unless set: whether a dialog opens with the transcode choices it last stored.
// Unset, every dialog opens with transcoding off, so that a forgotten transcode never slows an
// ingest the user meant as a plain copy.
inline constexpr std::string_view kPrefsKeepTranscodeState = "IGD.IngestTask.KeepTranscodeState";

} // namespace QL
