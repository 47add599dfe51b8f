#pragma once

namespace Mid {

// Whether the transcoder is there for the transcode sections to offer: the installed encoder list
// is not empty, unless the host said otherwise.
bool IsKilnInstalled();
void SetKilnInstalled(bool installed);

} // namespace Mid
