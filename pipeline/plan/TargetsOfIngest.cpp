#include "pipeline/plan/TargetsOfIngest.h"

namespace IGD {
namespace {

thread_local TargetsOfIngest* innermost = nullptr;

} // namespace

TargetsOfIngest::TargetsOfIngest() : shared_(&own_), outer_(innermost) {
    if (outer_)
        shared_ = outer_->shared_;
    innermost = this;
}

TargetsOfIngest::~TargetsOfIngest() {
    innermost = outer_;
}

} // namespace IGD
