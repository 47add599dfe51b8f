#pragma once
// Every question the system asks a person goes through one interaction driver: the desktop host
// shows real dialogs, the command-line host answers from flags or the terminal, tests script it.
#include <cstdint>
#include <memory>
#include <vector>

#include "Fnd/WString.h"

namespace Fnd {

enum class BoxIcon { None, Information, Warning, Error, Question, Stop };

struct MessageBoxRequest {
    WString title;
    WString text;
    std::vector<WString> buttons; // in display order; at least one
    int defaultButton = 0;        // index into buttons
    BoxIcon icon = BoxIcon::None;
};

// What to do about a copy target that exists already, or that a waiting task will create.
struct ExistingPathQuestion {
    WString source;
    WString target;
    bool isDirectory = false;
    bool onlyInCopyList = false; // not on disk yet, but a queued task will write it
    bool offerApplyToAll = true; // show the apply-to-all box
    bool offerCancel = true;     // show Cancel, which gives up the whole request
};

// Copy actions: 1 skip (keep the existing target), 2 keep both (new unique name), 3 replace.
struct ExistingPathAnswer {
    bool proceed = false; // false: the user cancelled the whole request
    int action = 0;
    bool applyToAll = false;
};

// A modal window being run. The driver presents it and lets the person work in it until a close
// is requested; the window is found again through its platform handle.
class IModalSession {
public:
    virtual ~IModalSession() = default;
    virtual WString ModalTitle() const = 0;
    virtual std::uintptr_t ModalPlatformWindow() const = 0;
    virtual bool IsCloseRequested() const = 0;
    // The person closed the window by its close box or by Escape.
    virtual void CloseByUser() = 0;
};

struct FolderQuestion {
    WString title;
    WString defaultDirectory;
};

class IInteractionDriver {
public:
    virtual ~IInteractionDriver() = default;
    // Answers the index of the button pressed.
    virtual int AskMessageBox(const MessageBoxRequest& request) = 0;
    virtual ExistingPathAnswer AskExistingPath(const ExistingPathQuestion& question) = 0;
    // Returns when the session has a close requested. A driver that cannot show windows closes it
    // as the person would, so nothing is ever confirmed unasked.
    virtual void RunModal(IModalSession& session) { session.CloseByUser(); }
    // A modal run that the caller drives in its own loop: Begin shows the window, each During lets
    // the person (and the run loop) act once without waiting, End takes the window away. A driver
    // that cannot show windows closes the session at its first turn, as the person would.
    virtual void BeginModal(IModalSession& session) {}
    virtual void ModalDuring(IModalSession& session) { session.CloseByUser(); }
    virtual void EndModal(IModalSession& session) {}
    // True with the chosen folder; false when cancelled.
    virtual bool AskFolder(const FolderQuestion& question, WString& chosen) { return false; }
    // Shows the file in the desktop's file manager (Fnd/FileManager.h); nothing is asked.
    virtual void RevealFile(const WString& path);
};

// Without an installed driver nobody can answer: every box answers its default button and every
// existing-path question is cancelled, so nothing is ever overwritten unasked.
IInteractionDriver& GetInteractionDriver();
void SetInteractionDriver(std::shared_ptr<IInteractionDriver> driver);

} // namespace Fnd
