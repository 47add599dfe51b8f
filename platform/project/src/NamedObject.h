#pragma once
// What the host-installed stand-ins of this folder share: an object that is its name and nothing
// more, and a process-wide slot that holds the installed one.
#include <atomic>
#include <mutex>
#include <utility>

#include "Fnd/InterfaceRef.h"
#include "Fnd/WString.h"

namespace Proj::detail {

template <class Interface> class NamedObject final : public Interface {
public:
    explicit NamedObject(Fnd::WString name) : name_(std::move(name)) {}

    Fnd::WString GetName() const override { return name_; }

    void AddRef() override { count_.fetch_add(1, std::memory_order_relaxed); }
    void Release() override {
        if (count_.fetch_sub(1, std::memory_order_acq_rel) == 1)
            delete this;
    }
    Fnd::QueryResult QueryInterface(const Fnd::InterfaceID& id, void** out) override {
        if (id == Interface::GetInterfaceID() || id == Fnd::FndUnknown::GetInterfaceID()) {
            AddRef();
            *out = static_cast<Interface*>(this);
            return Fnd::kQueryOK;
        }
        *out = nullptr;
        return Fnd::kQueryNoInterface;
    }
    Fnd::FndUnknown* GetRawObject() override { return this; }

private:
    std::atomic<int> count_{0};
    Fnd::WString name_;
};

// Hosts install from their start-up thread while library code may ask from a task thread.
template <class Interface> class InstalledSlot {
public:
    Fnd::InterfaceRef<Interface> Get() {
        std::lock_guard lock(mutex_);
        return installed_;
    }
    void Set(Fnd::InterfaceRef<Interface> object) {
        Fnd::InterfaceRef<Interface> previous;
        {
            std::lock_guard lock(mutex_);
            previous = std::exchange(installed_, std::move(object));
        }
        // Released outside the lock, in case its destructor asks for the slot.
    }

private:
    std::mutex mutex_;
    Fnd::InterfaceRef<Interface> installed_;
};

} // namespace Proj::detail
