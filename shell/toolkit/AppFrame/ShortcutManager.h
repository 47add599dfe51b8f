#pragma once
#include <functional>
#include <map>
#include <memory>
#include <vector>

#include "AppFrame/CommandContext.h"

namespace AppFrame {

// Shortcuts by named context. The contexts in force are a stack above "global"; a key goes to
// the topmost context that binds it, and its command to the commander chain of the target.
class ShortcutManager {
public:
    using ContextRegistration = std::function<void(ShortcutManager&)>;

    static ShortcutManager& Instance();

    // The function runs when the manager builds its contexts, or at once if it has.
    void RegisterCommandContext(ContextRegistration function);
    void BuildContexts();

    CommandContext* GetContext(fluxcore::utility::ImmutableString id);
    // The context with the id, made if it does not exist.
    CommandContext& AddContext(fluxcore::utility::ImmutableString id, const Fnd::WString& label);
    // Puts the context on top of those in force; alone leaves only it above "global".
    void ApplyContext(fluxcore::utility::ImmutableString id, bool alone);
    void UnapplyContext(fluxcore::utility::ImmutableString id);
    const std::vector<fluxcore::utility::ImmutableString>& GetAppliedContexts() const { return applied_; }

    // True when the key is the shortcut of an enabled command that a commander ran (or, with
    // onlyQuery, would run).
    bool DispatchKeyboardEvent(const fluxui::ui::KeyboardEvent& event, bool onlyQuery);

    // Forgets every context and registration: the state of a fresh process.
    void Clear();

private:
    ShortcutManager();

    std::map<fluxcore::utility::ImmutableString, std::unique_ptr<CommandContext>> contexts_;
    std::vector<fluxcore::utility::ImmutableString> applied_;
    std::vector<ContextRegistration> registrations_;
    bool built_ = false;
};

} // namespace AppFrame
