#pragma once
// Preferences held in memory, for the keys the file dialogs read and write.
#include <map>
#include <set>
#include <string>

#include "Fnd/InterfaceRef.h"
#include "Proj/IPreferences.h"
#include "support/CountedUnknown.h"

namespace igd::test {

class MemoryPreferences final : public CountedUnknown<Proj::IPreferences> {
public:
    static Fnd::InterfaceRef<MemoryPreferences> Make() {
        return Fnd::InterfaceRef<MemoryPreferences>(new MemoryPreferences());
    }
    Fnd::InterfaceRef<Proj::IPreferences> Interface() { return Fnd::InterfaceRef<Proj::IPreferences>(this); }

    std::map<std::string, Proj::PreferenceData> values;
    std::set<std::string> locked;
    int writes = 0;

    void Refresh() override {}
    bool GetValue(const Proj::PreferenceKey& key, Proj::SerializeableValueBase& value) override {
        const auto found = values.find(key.str());
        return found != values.end() && value.SetData(found->second);
    }
    void SetValue(const Proj::PreferenceKey& key, const Proj::SerializeableValueBase& value, bool) override {
        ++writes;
        if (!locked.count(key.str()))
            values[key.str()] = value.GetData();
    }
    bool IsReadOnly(const Proj::PreferenceKey& key) override { return locked.count(key.str()) != 0; }
    Fnd::StationID GetStationID() const override { return Fnd::StationID("test.FileDialogPreferences"); }

    // The stored string, empty when there is none.
    std::string String(std::string_view key) const {
        const auto found = values.find(std::string(key));
        if (found == values.end())
            return {};
        const std::string* text = std::get_if<std::string>(&found->second);
        return text ? *text : std::string();
    }
};

} // namespace igd::test
