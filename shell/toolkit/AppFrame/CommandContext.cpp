#include "AppFrame/CommandContext.h"

#include <stdexcept>

namespace AppFrame {
namespace {

bool StartsWith(std::string_view text, std::string_view prefix) {
    return text.substr(0, prefix.size()) == prefix;
}

char16_t Upper(char16_t c) {
    return c >= u'a' && c <= u'z' ? static_cast<char16_t>(c - u'a' + u'A') : c;
}

} // namespace

std::optional<Shortcut> Shortcut::Parse(std::string_view text) {
    if (text.empty())
        return std::nullopt;
    Shortcut shortcut;
    static constexpr std::pair<std::string_view, std::uint32_t> kModifiers[] = {
        {"Ctrl+", fluxui::ui::kModifierControl},
        {"Shift+", fluxui::ui::kModifierShift},
        {"Alt+", fluxui::ui::kModifierAlt},
        {"Cmd+", fluxui::ui::kModifierCommand},
    };
    for (bool found = true; found;) {
        found = false;
        for (const auto& [prefix, flag] : kModifiers)
            if (text.size() > prefix.size() && StartsWith(text, prefix)) {
                shortcut.modifiers |= flag;
                text.remove_prefix(prefix.size());
                found = true;
            }
    }
    if (text.size() != 1 || static_cast<unsigned char>(text[0]) >= 0x80)
        throw std::invalid_argument("Shortcut: not a key: " + std::string(text));
    shortcut.character = Upper(static_cast<char16_t>(text[0]));
    return shortcut;
}

bool Shortcut::Matches(const fluxui::ui::KeyboardEvent& event) const {
    return event.key == fluxui::ui::Key::Character && Upper(event.character) == character &&
           event.modifiers == modifiers;
}

void CommandContext::DeclareCommand(fluxcore::utility::ImmutableString commandString, int number, int kind,
                                    const Fnd::WString& label,
                                    fluxcore::utility::ImmutableString defaultShortcut, bool hidden) {
    for (const DeclaredCommand& command : commands_)
        if (command.number == number || command.commandString == commandString)
            throw std::logic_error("CommandContext: command declared twice: " + commandString.str());
    commands_.push_back({commandString, number, kind, label, Shortcut::Parse(defaultShortcut.str()), hidden});
}

void CommandContext::SetShortcut(int number, std::string_view shortcut) {
    for (DeclaredCommand& command : commands_)
        if (command.number == number) {
            command.shortcut = Shortcut::Parse(shortcut);
            return;
        }
    throw std::logic_error("CommandContext: no such command");
}

const DeclaredCommand* CommandContext::FindCommand(int number) const {
    for (const DeclaredCommand& command : commands_)
        if (command.number == number)
            return &command;
    return nullptr;
}

const DeclaredCommand* CommandContext::FindShortcut(const fluxui::ui::KeyboardEvent& event) const {
    for (const DeclaredCommand& command : commands_)
        if (command.shortcut && command.shortcut->Matches(event))
            return &command;
    return nullptr;
}

} // namespace AppFrame
