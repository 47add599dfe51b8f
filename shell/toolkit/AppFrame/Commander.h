#pragma once
#include <vector>

namespace AppFrame {

class Command {
public:
    explicit Command(int id) : id_(id) {}
    int GetID() const { return id_; }

private:
    int id_;
};

struct CommandStatus {
    bool enabled = false;
    bool checked = false;
};

// A chain of command handlers with one current target: a command goes from the target up the
// parents until one answers true. Commanders on the target's chain are on duty.
class Commander {
public:
    explicit Commander(Commander* parent = nullptr);
    virtual ~Commander();
    Commander(const Commander&) = delete;
    Commander& operator=(const Commander&) = delete;

    Commander* GetParentCommander() const { return parent_; }

    // Commanders that leave the chain go off duty (innermost first), those that join go on
    // duty (outermost first). Setting the current target again changes nothing.
    static void SetTarget(Commander* target);
    static Commander* GetTarget();
    // As SetTarget, but the whole chain goes off and on duty even for the current target.
    static void ForceTargetSwitch(Commander* target);

    // Asks the chain from the target up; false when nobody answers.
    static bool QueryFromTarget(const Command& command, CommandStatus& status);
    static bool ExecuteFromTarget(const Command& command);

    bool IsOnDuty() const { return onDuty_; }

protected:
    virtual void NowOnDuty() {}
    virtual void NowOffDuty() {}
    // True when this commander answers the command, with its status filled in.
    virtual bool QueryCommand(const Command& command, CommandStatus& status) { return false; }
    // True when this commander handled the command.
    virtual bool ExecuteCommand(const Command& command) { return false; }

private:
    static void Switch(Commander* target, bool force);
    std::vector<Commander*> Chain();

    Commander* parent_;
    std::vector<Commander*> children_;
    bool onDuty_ = false;
};

} // namespace AppFrame
