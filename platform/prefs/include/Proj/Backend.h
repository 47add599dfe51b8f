#pragma once
#include "Fnd/InterfaceRef.h"
#include "Proj/IPreferences.h"

namespace Proj {

// The host's back end. Its preferences are reached by querying it for IPreferences.
class IBackend : public Fnd::FndUnknown {
public:
    static const Fnd::InterfaceID& GetInterfaceID();
};

// The installed back end; null until a host or a test installs one.
Fnd::InterfaceRef<IBackend> GetBackend();
// Installs a back end for the whole process; null removes it.
void SetBackend(Fnd::InterfaceRef<IBackend> backend);

// A back end that answers for the given preferences, for hosts and tests that have nothing more
// to put behind it.
Fnd::InterfaceRef<IBackend> MakeBackend(Fnd::InterfaceRef<IPreferences> preferences);

// Installs MakeBackend(preferences) while it lives and the previous back end afterwards.
class ScopedBackend {
public:
    explicit ScopedBackend(Fnd::InterfaceRef<IPreferences> preferences);
    ~ScopedBackend();
    ScopedBackend(const ScopedBackend&) = delete;
    ScopedBackend& operator=(const ScopedBackend&) = delete;

private:
    Fnd::InterfaceRef<IBackend> previous_;
};

} // namespace Proj
