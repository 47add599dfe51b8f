#pragma once
// Settings and requests the transcode tests share.
#include <string>
#include <vector>

#include "Av/Transcoder.h"

namespace igd::test {

Av::EncoderSettings ProResProxy();
Av::SourceClip ClipOf(const std::string& video);
Av::TranscodeRequest RequestOf(std::vector<Av::SourceClip> clips, std::vector<Av::TranscodeOutput> outputs);

} // namespace igd::test
