#include "AppFrame/Commander.h"

#include <algorithm>

namespace AppFrame {
namespace {

Commander*& CurrentTarget() {
    static Commander* target = nullptr;
    return target;
}

} // namespace

Commander::Commander(Commander* parent) : parent_(parent) {
    if (parent_)
        parent_->children_.push_back(this);
}

Commander::~Commander() {
    // The target must never point at a dead commander: it falls back to the nearest survivor.
    for (Commander* node = CurrentTarget(); node; node = node->parent_)
        if (node == this) {
            Switch(parent_, false);
            break;
        }
    for (Commander* child : children_)
        child->parent_ = nullptr;
    if (parent_) {
        auto& siblings = parent_->children_;
        siblings.erase(std::remove(siblings.begin(), siblings.end(), this), siblings.end());
    }
}

std::vector<Commander*> Commander::Chain() {
    std::vector<Commander*> chain;
    for (Commander* node = this; node; node = node->parent_)
        chain.push_back(node);
    return chain;
}

void Commander::SetTarget(Commander* target) {
    Switch(target, false);
}

Commander* Commander::GetTarget() {
    return CurrentTarget();
}

void Commander::ForceTargetSwitch(Commander* target) {
    Switch(target, true);
}

void Commander::Switch(Commander* target, bool force) {
    Commander* old = CurrentTarget();
    if (old == target && !force)
        return;
    const std::vector<Commander*> oldChain = old ? old->Chain() : std::vector<Commander*>{};
    const std::vector<Commander*> newChain = target ? target->Chain() : std::vector<Commander*>{};
    const auto contains = [](const std::vector<Commander*>& chain, Commander* c) {
        return std::find(chain.begin(), chain.end(), c) != chain.end();
    };
    CurrentTarget() = target;
    for (Commander* c : oldChain)
        if (force || !contains(newChain, c)) {
            c->onDuty_ = false;
            c->NowOffDuty();
        }
    for (auto c = newChain.rbegin(); c != newChain.rend(); ++c)
        if (force || !contains(oldChain, *c)) {
            (*c)->onDuty_ = true;
            (*c)->NowOnDuty();
        }
}

bool Commander::QueryFromTarget(const Command& command, CommandStatus& status) {
    for (Commander* node = CurrentTarget(); node; node = node->parent_)
        if (node->QueryCommand(command, status))
            return true;
    return false;
}

bool Commander::ExecuteFromTarget(const Command& command) {
    for (Commander* node = CurrentTarget(); node; node = node->parent_)
        if (node->ExecuteCommand(command))
            return true;
    return false;
}

} // namespace AppFrame
