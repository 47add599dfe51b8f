#pragma once
// Reference counting for fakes of FndUnknown interfaces: derive a fake from
// CountedUnknown<Interface> and implement only the interface's own operations. The fake deletes
// itself with its last reference; it answers no interface queries.
#include <atomic>

#include "Fnd/FndUnknown.h"

namespace igd::test {

template <class Interface>
class CountedUnknown : public Interface {
public:
    void AddRef() override { ++count_; }
    void Release() override {
        if (--count_ == 0)
            delete this;
    }
    Fnd::QueryResult QueryInterface(const Fnd::InterfaceID&, void** out) override {
        *out = nullptr;
        return Fnd::kQueryNoInterface;
    }
    Fnd::FndUnknown* GetRawObject() override { return this; }

private:
    std::atomic<int> count_{0};
};

} // namespace igd::test
