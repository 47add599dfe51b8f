#pragma once
// Settings and requests the transcode tests share.
#include <string>
#include <vector>

#include "Av/Transcoder.h"

namespace igd::test {

Av::EncoderSettings ProResProxy();
Av::SourceClip ClipOf(const std::string& video);
Av::TranscodeRequest RequestOf(std::vector<Av::SourceClip> clips, std::vector<Av::TranscodeOutput> outputs);
// The message of the MediaError the request throws; empty when it throws none.
std::string MediaErrorOf(const Av::TranscodeRequest& request);

} // namespace igd::test
