#pragma once
// A preference store in memory that records every call, so tests can check which keys are read
// and written, in which order, and that nothing is written to a locked key. Header-only: the file
// dialog suite keeps its last used folder in it as well.
#include <map>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

#include "Fnd/InterfaceRef.h"
#include "Proj/PreferenceBatch.h"
#include "support/CountedUnknown.h"

namespace igd::test {
using namespace IGD;

// The full key of a controller key given without its common prefix.
inline std::string K(std::string_view shortKey) {
    return "IGD.IngestDestinationSettingImpl." + std::string(shortKey);
}

class RecordingPreferences final : public CountedUnknown<Proj::IPreferences>,
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
    // Values written to last until the process ends; a suite whose code writes such values says
    // so, every other one fails on them.
    bool allowSessionValues = false;
    std::map<std::string, Proj::PreferenceData> sessionValues;

    std::vector<std::string> KeysOf(Op op) const {
        std::vector<std::string> keys;
        for (const Call& call : calls)
            if (call.op == op)
                keys.push_back(call.key);
        return keys;
    }
    std::vector<Op> BatchOps() const {
        std::vector<Op> ops;
        for (const Call& call : calls)
            if (call.op == Op::kBeginBatch || call.op == Op::kCommitBatch || call.op == Op::kDropBatch)
                ops.push_back(call.op);
        return ops;
    }

    void Refresh() override { calls.push_back({Op::kRefresh, {}}); }
    bool GetValue(const Proj::PreferenceKey& key, Proj::SerializeableValueBase& value) override {
        calls.push_back({Op::kGet, key.str()});
        if (const auto session = sessionValues.find(key.str()); session != sessionValues.end())
            return value.SetData(session->second);
        const auto found = values.find(key.str());
        return found != values.end() && value.SetData(found->second);
    }
    void SetValue(const Proj::PreferenceKey& key, const Proj::SerializeableValueBase& value,
                  bool persistent) override {
        calls.push_back({Op::kSet, key.str()});
        if (key.str() == failing)
            throw std::runtime_error("disk full");
        if (!persistent && !allowSessionValues)
            throw std::logic_error("preferences are written persistent only");
        if (!persistent) {
            if (locked.count(key.str()) == 0)
                sessionValues[key.str()] = value.GetData();
            return;
        }
        // Like the real store: a locked key keeps its value even when a caller forgets to ask.
        if (locked.count(key.str()) == 0)
            values[key.str()] = value.GetData();
    }
    bool IsReadOnly(const Proj::PreferenceKey& key) override {
        calls.push_back({Op::kIsReadOnly, key.str()});
        return locked.count(key.str()) != 0;
    }
    Fnd::StationID GetStationID() const override { return Fnd::StationID("test.Preferences"); }
    void BeginBatch() override { calls.push_back({Op::kBeginBatch, {}}); }
    void EndBatch(bool commit) override { calls.push_back({commit ? Op::kCommitBatch : Op::kDropBatch, {}}); }
};

} // namespace igd::test
