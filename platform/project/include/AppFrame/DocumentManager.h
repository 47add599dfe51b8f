#pragma once
#include <memory>
#include <mutex>

#include "Fnd/WString.h"

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
    // The path of the project document open now; a "save as" changes it.
    virtual Fnd::WString GetCurrentDocumentPath() const = 0;
};

// A document manager whose answers are set by the host from its flags and environment.
class FixedDocumentManager : public DocumentManager {
public:
    explicit FixedDocumentManager(bool vaultMode, Fnd::WString documentPath = {})
        : vaultMode_(vaultMode), documentPath_(std::move(documentPath)) {}
    bool IsVaultMode() const override { return vaultMode_; }
    Fnd::WString GetCurrentDocumentPath() const override {
        std::lock_guard lock(mutex_);
        return documentPath_;
    }
    // The host saved the project under another name.
    void SetCurrentDocumentPath(Fnd::WString path) {
        std::lock_guard lock(mutex_);
        documentPath_ = std::move(path);
    }

private:
    bool vaultMode_;
    mutable std::mutex mutex_;
    Fnd::WString documentPath_;
};

} // namespace AppFrame
