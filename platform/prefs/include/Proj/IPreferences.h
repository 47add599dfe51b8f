#pragma once
#include "Fnd/FndUnknown.h"
#include "Fnd/Listener.h"
#include "Proj/SerializeableValue.h"
#include "fluxcore/ImmutableString.h"

namespace Proj {

using PreferenceKey = fluxcore::utility::ImmutableString;

// The host's preferences: typed values under narrow keys, some of which an administrator or the
// application may lock.
class IPreferences : public Fnd::FndUnknown {
public:
    // {814DDA28-5B41-4F12-B67A-7450BFA3191E}
    static const Fnd::InterfaceID& GetInterfaceID();

    // Brings this process's view up to date with what other processes wrote. Callers make it
    // before they read.
    virtual void Refresh() = 0;
    // True and the value filled in when the key holds a value of the value's kind; otherwise the
    // value keeps what it held, which is how a caller passes its default.
    virtual bool GetValue(const PreferenceKey& key, SerializeableValueBase& value) = 0;
    // A persistent value outlives the process; another one lasts until the process ends. A
    // read-only key is left as it is: callers ask IsReadOnly first and warn instead.
    virtual void SetValue(const PreferenceKey& key, const SerializeableValueBase& value, bool persistent) = 0;
    virtual bool IsReadOnly(const PreferenceKey& key) = 0;
    // Where warnings about writes to read-only keys are posted.
    virtual Fnd::StationID GetStationID() const = 0;
};

} // namespace Proj
