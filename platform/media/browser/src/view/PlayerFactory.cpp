#include "fluxmediabrowser/PlayerFactory.h"

namespace fluxmediabrowser {
namespace {

RequestMBPlayerOwnerFxn& Factory() {
    static RequestMBPlayerOwnerFxn factory;
    return factory;
}

} // namespace

void SetRequestMBPlayerOwnerSharedFxn(RequestMBPlayerOwnerFxn factory) {
    Factory() = std::move(factory);
}

const RequestMBPlayerOwnerFxn& GetRequestMBPlayerOwnerSharedFxn() {
    return Factory();
}

} // namespace fluxmediabrowser
