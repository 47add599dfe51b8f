#pragma once
#include <memory>

#include "Fnd/RunLoop.h"

namespace Fnd::detail {

// The installed run loop, held for the duration of a post: a worker thread may post while the
// host replaces the loop, and the loop it took must outlive that post.
std::shared_ptr<RunLoop> AcquireRunLoop();

} // namespace Fnd::detail
