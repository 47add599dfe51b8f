#include "VaultClient/IVaultCDataServer.h"

#include "NamedObject.h"

namespace VaultClient {
namespace {
Proj::detail::InstalledSlot<IVaultCDataServer>& LoggedInSlot() {
    static Proj::detail::InstalledSlot<IVaultCDataServer> slot;
    return slot;
}
} // namespace

const Fnd::InterfaceID& IVaultCDataServer::GetInterfaceID() {
    static const Fnd::InterfaceID id = Fnd::MakeInterfaceID("{C673A3C3-905C-4ACD-92AB-FFB72FFA5BB4}");
    return id;
}

Fnd::InterfaceRef<IVaultCDataServer> IVaultCDataServer::GetLoggedInServerRef() {
    return LoggedInSlot().Get();
}

void IVaultCDataServer::SetLoggedInServer(Fnd::InterfaceRef<IVaultCDataServer> server) {
    LoggedInSlot().Set(std::move(server));
}

Fnd::InterfaceRef<IVaultCDataServer> MakeNamedServer(const Fnd::WString& name) {
    return Fnd::InterfaceRef<IVaultCDataServer>(new Proj::detail::NamedObject<IVaultCDataServer>(name));
}

} // namespace VaultClient
