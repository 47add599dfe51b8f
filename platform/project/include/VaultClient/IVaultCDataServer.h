#pragma once
#include "Fnd/InterfaceRef.h"
#include "Fnd/WString.h"

namespace VaultClient {

// The collaboration server the host is logged in to. Logging in and out is the host's concern;
// the library only asks who is logged in.
class IVaultCDataServer : public Fnd::FndUnknown {
public:
    static const Fnd::InterfaceID& GetInterfaceID();

    // Null when nobody is logged in.
    static Fnd::InterfaceRef<IVaultCDataServer> GetLoggedInServerRef();
    // The host logs in to a server, or out with null.
    static void SetLoggedInServer(Fnd::InterfaceRef<IVaultCDataServer> server);

    // The server's name as the user knows it.
    virtual Fnd::WString GetName() const = 0;
};

// A server known only by its name: all a host needs that shows where remote media goes.
Fnd::InterfaceRef<IVaultCDataServer> MakeNamedServer(const Fnd::WString& name);

} // namespace VaultClient
