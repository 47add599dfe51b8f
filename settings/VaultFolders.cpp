// Where the media of a remote project goes, and its scratch folders for transcoding.
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include <sys/stat.h>

#include "Mid/Project.h"
#include "Mid/Utilities.h"
#include "VaultClient/IVaultCDataServer.h"
#include "fluxcore/Guid.h"
#include "settings/IngestSettingsController.h"

namespace IGD {
namespace {

Fnd::WString TempDirectory() {
    const char* tmp = std::getenv("TMPDIR");
    return Fnd::FromUTF8(tmp != nullptr && *tmp != '\0' ? tmp : "/tmp");
}

} // namespace

Fnd::WString IngestSettingsController::GetVaultDestinationText() const {
    if (!IsVaultMode())
        return {};
    const auto server = VaultClient::IVaultCDataServer::GetLoggedInServerRef();
    if (!server)
        return {};
    // A server without an open project is the host's fault: the null project raises.
    return server->GetName() + u"/" + Mid::GetProject()->GetName();
}

Fnd::WString IngestSettingsController::GetVaultTempFolder() const {
    if (!IsVaultMode())
        return {};
    const Fnd::WString root = Mid::Utilities::CombinePaths(
        Mid::Utilities::CombinePaths(TempDirectory(), u"TempVaultTranscodeFilesRoot"), u"VaultIngest");
    // A random name is new without a look at the folder, and other users of a shared temporary
    // folder cannot guess it; 0700 keeps them out of what is transcoded there.
    const Fnd::WString braced = fluxcore::utility::Guid::CreateUnique().ToWString();
    const Fnd::WString folder = Mid::Utilities::CombinePaths(root, braced.substr(1, braced.size() - 2));
    // Whoever asked finds out soon enough when the folder could not be made: the path is the
    // answer either way.
    std::error_code ignored;
    std::filesystem::create_directories(Fnd::ToUTF8(root), ignored);
    ::mkdir(Fnd::ToUTF8(folder).c_str(), 0700);
    return folder;
}

} // namespace IGD
