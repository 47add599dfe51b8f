#include "pipeline/GatherPathItems.h"

namespace IGD {

void GatherPathItems(IIngestDialogData& /*session*/, const Fnd::WString& /*path*/) {
    // No media browser provider is installed yet, and a path no provider knows gives no item.
}

} // namespace IGD
