#include "Proj/PreferenceBatch.h"

#include <utility>

namespace Proj {

PreferenceBatch::PreferenceBatch(IPreferences& preferences)
    : batch_(dynamic_cast<IPreferenceBatch*>(&preferences)) {
    if (batch_)
        batch_->BeginBatch();
}

PreferenceBatch::~PreferenceBatch() {
    if (!batch_)
        return;
    try {
        batch_->EndBatch(false);
    } catch (...) {
        // Already unwinding from the failure that stopped the batch; that one is what matters.
    }
}

void PreferenceBatch::Commit() {
    if (IPreferenceBatch* batch = std::exchange(batch_, nullptr))
        batch->EndBatch(true);
}

} // namespace Proj
