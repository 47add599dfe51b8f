#pragma once
#include <unordered_set>

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

    bool Claimed(const Fnd::WString& target) const { return shared_->contains(target); }
    void Claim(const Fnd::WString& target) { shared_->insert(target); }

private:
    std::unordered_set<Fnd::WString> own_;
    std::unordered_set<Fnd::WString>* shared_;
    TargetsOfIngest* outer_;
};

} // namespace IGD
