#pragma once
#include <memory>

namespace AppFrame {

// The host's document manager: what the library needs to know of the open project.
class DocumentManager {
public:
    virtual ~DocumentManager() = default;
    // Null when the host has none.
    static DocumentManager* Instance();
    // The host (or a test) installs its manager; null removes it.
    static void SetInstance(std::shared_ptr<DocumentManager> manager);

    // The open project lives on a collaboration server.
    virtual bool IsVaultMode() const = 0;
};

// A document manager whose answers are set by the host from its flags and environment.
class FixedDocumentManager : public DocumentManager {
public:
    explicit FixedDocumentManager(bool vaultMode) : vaultMode_(vaultMode) {}
    bool IsVaultMode() const override { return vaultMode_; }

private:
    bool vaultMode_;
};

} // namespace AppFrame
