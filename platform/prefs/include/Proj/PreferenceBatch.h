#pragma once
#include "Proj/IPreferences.h"

namespace Proj {

// Offered beside IPreferences by stores that can make many writes one transaction: a store of
// every setting then costs one flush to disk instead of one per value, and a failure half-way
// leaves all the old values.
class IPreferenceBatch {
public:
    virtual ~IPreferenceBatch() = default;
    // A batch begun inside another joins it; the outermost end decides.
    virtual void BeginBatch() = 0;
    // commit false drops every write of the batch, the joined ones included.
    virtual void EndBatch(bool commit) = 0;
};

// Makes the writes of its lifetime one transaction where the store can, and changes nothing
// where it cannot. Writes count only after Commit; a batch left without it (an exception on the
// way) is dropped.
class PreferenceBatch {
public:
    explicit PreferenceBatch(IPreferences& preferences);
    ~PreferenceBatch();
    PreferenceBatch(const PreferenceBatch&) = delete;
    PreferenceBatch& operator=(const PreferenceBatch&) = delete;

    void Commit();

private:
    IPreferenceBatch* batch_;
};

} // namespace Proj
