#pragma once
// A preference store in memory that records every call, so tests can check which keys the
// settings read and write, in which order, and that nothing is written to a locked key.
#include <map>
#include <set>
#include <string>
#include <vector>

#include "Fnd/InterfaceRef.h"
#include "Proj/PreferenceBatch.h"
#include "support/CountedUnknown.h"

namespace IGD::test {

// The full key of a controller key given without its common prefix.
std::string K(std::string_view shortKey);
// Full keys of short ones separated by blanks; "A+B" joins two, as a list's keys are joined to
// its prefix: Ks("Local.Backup.Count Primary.DestPathMRU+PathsMRUCount").
std::vector<std::string> Ks(std::string_view shortKeys);

class RecordingPreferences final : public igd::test::CountedUnknown<Proj::IPreferences>,
                                   public Proj::IPreferenceBatch {
public:
    enum class Op { kRefresh, kGet, kSet, kIsReadOnly, kBeginBatch, kCommitBatch, kDropBatch };
    struct Call {
        Op op;
        std::string key;
    };

    static Fnd::InterfaceRef<RecordingPreferences> Make() {
        return Fnd::InterfaceRef<RecordingPreferences>(new RecordingPreferences());
    }
    Fnd::InterfaceRef<Proj::IPreferences> Interface() { return Fnd::InterfaceRef<Proj::IPreferences>(this); }

    std::map<std::string, Proj::PreferenceData> values;
    std::set<std::string> locked;
    // Writing this key throws, as a full disk would.
    std::string failing;
    std::vector<Call> calls;

    std::vector<std::string> KeysOf(Op op) const;
    std::vector<Op> BatchOps() const;

    void Refresh() override { calls.push_back({Op::kRefresh, {}}); }
    bool GetValue(const Proj::PreferenceKey& key, Proj::SerializeableValueBase& value) override;
    void SetValue(const Proj::PreferenceKey& key, const Proj::SerializeableValueBase& value,
                  bool persistent) override;
    bool IsReadOnly(const Proj::PreferenceKey& key) override;
    Fnd::StationID GetStationID() const override { return Fnd::StationID("test.Preferences"); }
    void BeginBatch() override { calls.push_back({Op::kBeginBatch, {}}); }
    void EndBatch(bool commit) override { calls.push_back({commit ? Op::kCommitBatch : Op::kDropBatch, {}}); }
};

} // namespace IGD::test
