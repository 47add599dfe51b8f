#pragma once
#include <optional>
#include <string>
#include <vector>

#include "Fnd/WString.h"
#include "fluxcore/ImmutableString.h"
#include "fluxui/ui/KeyboardEvent.h"

namespace AppFrame {

// A key and its modifiers, written as "Ctrl+Shift+I"; a single character without modifiers is a
// plain key. Empty text is no shortcut.
struct Shortcut {
    char16_t character = 0;
    std::uint32_t modifiers = fluxui::ui::kModifierNone;

    static std::optional<Shortcut> Parse(std::string_view text);
    bool Matches(const fluxui::ui::KeyboardEvent& event) const;
    friend bool operator==(const Shortcut&, const Shortcut&) = default;
};

struct DeclaredCommand {
    fluxcore::utility::ImmutableString commandString;
    int number = 0;
    int kind = 0;
    Fnd::WString label;
    std::optional<Shortcut> shortcut;
    bool hidden = false;
};

// The commands of one named context and their shortcuts.
class CommandContext {
public:
    CommandContext(fluxcore::utility::ImmutableString id, Fnd::WString label)
        : id_(id), label_(std::move(label)) {}

    // A command string or number declared twice is a programming fault.
    void DeclareCommand(fluxcore::utility::ImmutableString commandString, int number, int kind,
                        const Fnd::WString& label, fluxcore::utility::ImmutableString defaultShortcut,
                        bool hidden);
    // Rebinds a declared command; empty text removes its shortcut.
    void SetShortcut(int number, std::string_view shortcut);

    const fluxcore::utility::ImmutableString& GetID() const { return id_; }
    const Fnd::WString& GetLabel() const { return label_; }
    const std::vector<DeclaredCommand>& GetCommands() const { return commands_; }
    const DeclaredCommand* FindCommand(int number) const;
    // The command whose shortcut the event is, if any.
    const DeclaredCommand* FindShortcut(const fluxui::ui::KeyboardEvent& event) const;

private:
    fluxcore::utility::ImmutableString id_;
    Fnd::WString label_;
    std::vector<DeclaredCommand> commands_;
};

} // namespace AppFrame
