#pragma once
#include <atomic>

#include "Fnd/FndUnknown.h"

namespace Fnd {

// The reference counting and interface query of an object that answers for its own class (Self
// has a GetInterfaceID of its own) and for one interface, so that the service that made it can
// find its own objects among those a caller hands back.
template <class Self, class Interface> class UnknownObject : public Interface {
public:
    void AddRef() override { count_.fetch_add(1, std::memory_order_relaxed); }
    void Release() override {
        if (count_.fetch_sub(1, std::memory_order_acq_rel) == 1)
            delete this;
    }
    QueryResult QueryInterface(const InterfaceID& id, void** out) override {
        if (id == Self::GetInterfaceID()) {
            AddRef();
            *out = static_cast<Self*>(this);
            return kQueryOK;
        }
        if (id == Interface::GetInterfaceID() || id == FndUnknown::GetInterfaceID()) {
            AddRef();
            *out = static_cast<Interface*>(this);
            return kQueryOK;
        }
        *out = nullptr;
        return kQueryNoInterface;
    }
    FndUnknown* GetRawObject() override { return this; }

private:
    std::atomic<int> count_{0};
};

} // namespace Fnd
