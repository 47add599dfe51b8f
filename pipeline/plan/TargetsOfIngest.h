#pragma once
#include <unordered_map>

#include "Fnd/WString.h"

namespace IGD {

// The file targets that the copies decided so far in one ingest will write. Two files of one
// ingest meeting at one target clash just as a file already on the disk does, and the clash is
// settled by the same choice before anything is written. A scope spans the decisions of every
// session of an ingest; a scope opened inside another shares the outer one's targets.
class TargetsOfIngest {
public:
    TargetsOfIngest();
    ~TargetsOfIngest();
    TargetsOfIngest(const TargetsOfIngest&) = delete;
    TargetsOfIngest& operator=(const TargetsOfIngest&) = delete;

    // Whether another item than owner will write the target: an item that names its own file
    // twice (a clip's file is among its extra paths too) meets no one.
    bool ClaimedByOther(const Fnd::WString& target, const void* owner) const {
        const auto found = shared_->find(target);
        return found != shared_->end() && found->second != owner;
    }
    void Claim(const Fnd::WString& target, const void* owner) { shared_->emplace(target, owner); }

private:
    using Claims = std::unordered_map<Fnd::WString, const void*>;
    Claims own_;
    Claims* shared_;
    TargetsOfIngest* outer_;
};

} // namespace IGD
