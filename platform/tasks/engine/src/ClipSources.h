#pragma once
#include "Av/SourceClip.h"
#include "QL/TranscodeSetting.h"

namespace QL::Engine {

// The files a transcode decodes for a clip, in play order. A file of a camera card clip brings the
// whole clip: its recorded pieces (chapters, spans), each with the sound files a camera keeps
// apart (one per channel on P2 cards); proxies, thumbnails and index files are left out. Any
// other file is a clip by itself. In and out points become seconds.
Av::SourceClip ClipSourceOf(const IngestTask::TranscodeClipEntry& clip);

} // namespace QL::Engine
