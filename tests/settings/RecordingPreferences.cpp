#include "tests/settings/RecordingPreferences.h"

#include <sstream>
#include <stdexcept>

namespace IGD::test {

std::string K(std::string_view shortKey) {
    return "IGD.IngestDestinationSettingImpl." + std::string(shortKey);
}

std::vector<std::string> Ks(std::string_view shortKeys) {
    std::vector<std::string> keys;
    std::istringstream words{std::string(shortKeys)};
    for (std::string word; words >> word;) {
        const auto plus = word.find('+');
        keys.push_back(plus == std::string::npos ? K(word)
                                                 : K(word.substr(0, plus)) + K(word.substr(plus + 1)));
    }
    return keys;
}

std::vector<std::string> RecordingPreferences::KeysOf(Op op) const {
    std::vector<std::string> keys;
    for (const Call& call : calls)
        if (call.op == op)
            keys.push_back(call.key);
    return keys;
}

std::vector<RecordingPreferences::Op> RecordingPreferences::BatchOps() const {
    std::vector<Op> ops;
    for (const Call& call : calls)
        if (call.op == Op::kBeginBatch || call.op == Op::kCommitBatch || call.op == Op::kDropBatch)
            ops.push_back(call.op);
    return ops;
}

bool RecordingPreferences::GetValue(const Proj::PreferenceKey& key, Proj::SerializeableValueBase& value) {
    calls.push_back({Op::kGet, key.str()});
    const auto found = values.find(key.str());
    return found != values.end() && value.SetData(found->second);
}

void RecordingPreferences::SetValue(const Proj::PreferenceKey& key, const Proj::SerializeableValueBase& value,
                                    bool persistent) {
    calls.push_back({Op::kSet, key.str()});
    if (key.str() == failing)
        throw std::runtime_error("disk full");
    if (!persistent)
        throw std::logic_error("the settings write persistent values only");
    // Like the real store: a locked key keeps its value even when a caller forgets to ask.
    if (locked.count(key.str()) == 0)
        values[key.str()] = value.GetData();
}

bool RecordingPreferences::IsReadOnly(const Proj::PreferenceKey& key) {
    calls.push_back({Op::kIsReadOnly, key.str()});
    return locked.count(key.str()) != 0;
}

} // namespace IGD::test
