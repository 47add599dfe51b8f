#include "AppFrame/ShortcutManager.h"

#include <algorithm>
#include <stdexcept>

#include "AppFrame/Commander.h"

namespace AppFrame {
namespace {

const fluxcore::utility::ImmutableString kGlobal("global");

} // namespace

ShortcutManager::ShortcutManager() {
    Clear();
}

ShortcutManager& ShortcutManager::Instance() {
    static ShortcutManager* manager = new ShortcutManager;
    return *manager;
}

void ShortcutManager::Clear() {
    contexts_.clear();
    registrations_.clear();
    built_ = false;
    contexts_[kGlobal] = std::make_unique<CommandContext>(kGlobal, u"Global");
    applied_ = {kGlobal};
}

void ShortcutManager::RegisterCommandContext(ContextRegistration function) {
    registrations_.push_back(function);
    if (built_)
        function(*this);
}

void ShortcutManager::BuildContexts() {
    if (built_)
        return;
    built_ = true;
    for (const ContextRegistration& function : registrations_)
        function(*this);
}

CommandContext* ShortcutManager::GetContext(fluxcore::utility::ImmutableString id) {
    const auto found = contexts_.find(id);
    return found == contexts_.end() ? nullptr : found->second.get();
}

CommandContext& ShortcutManager::AddContext(fluxcore::utility::ImmutableString id,
                                            const Fnd::WString& label) {
    std::unique_ptr<CommandContext>& slot = contexts_[id];
    if (!slot)
        slot = std::make_unique<CommandContext>(id, label);
    return *slot;
}

void ShortcutManager::ApplyContext(fluxcore::utility::ImmutableString id, bool alone) {
    if (!GetContext(id))
        throw std::logic_error("ShortcutManager: no context " + id.str());
    if (id == kGlobal)
        return;
    if (alone)
        applied_ = {kGlobal};
    else
        applied_.erase(std::remove(applied_.begin(), applied_.end(), id), applied_.end());
    applied_.push_back(id);
}

void ShortcutManager::UnapplyContext(fluxcore::utility::ImmutableString id) {
    if (id == kGlobal)
        return;
    applied_.erase(std::remove(applied_.begin(), applied_.end(), id), applied_.end());
}

bool ShortcutManager::DispatchKeyboardEvent(const fluxui::ui::KeyboardEvent& event, bool onlyQuery) {
    for (auto id = applied_.rbegin(); id != applied_.rend(); ++id) {
        const CommandContext* context = GetContext(*id);
        const DeclaredCommand* declared = context ? context->FindShortcut(event) : nullptr;
        if (!declared)
            continue;
        // The innermost binding of a key wins, even when no commander takes its command.
        const Command command(declared->number);
        CommandStatus status;
        if (!Commander::QueryFromTarget(command, status) || !status.enabled)
            return false;
        return onlyQuery || Commander::ExecuteFromTarget(command);
    }
    return false;
}

} // namespace AppFrame
