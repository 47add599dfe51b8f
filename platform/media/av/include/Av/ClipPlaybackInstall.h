#pragma once

namespace Av {

// Installs the playback reader on FFmpeg for preview players: one line at a host's start-up.
void InstallClipPlayback();

} // namespace Av
