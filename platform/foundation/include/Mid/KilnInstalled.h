#pragma once

namespace Mid {

// Whether the transcoder is there for the transcode sections to offer. Unless the host says
// otherwise, it is when an executable "ffmpeg" lies on PATH (looked up once).
bool IsKilnInstalled();
void SetKilnInstalled(bool installed);

} // namespace Mid
