#pragma once
#include <atomic>
#include <cstdint>

#include <boost/intrusive_ptr.hpp>

namespace fluxcore::utility {

class RefCountedInterface {
public:
    virtual void AddRef() const = 0;
    virtual void Release() const = 0;

protected:
    virtual ~RefCountedInterface() = default;
};

// Intrusively counted object, held through boost::intrusive_ptr. Copying an object does not
// copy its count: the copy starts unowned.
class RefCountedObject : public virtual RefCountedInterface {
public:
    void AddRef() const override { count_.fetch_add(1, std::memory_order_relaxed); }
    void Release() const override {
        if (count_.fetch_sub(1, std::memory_order_acq_rel) == 1)
            delete this;
    }
    std::uint32_t GetRefCount() const { return count_.load(std::memory_order_relaxed); }

protected:
    RefCountedObject() = default;
    RefCountedObject(const RefCountedObject&) : RefCountedInterface() {}
    RefCountedObject& operator=(const RefCountedObject&) { return *this; }
    ~RefCountedObject() override = default;

private:
    mutable std::atomic<std::uint32_t> count_{0};
};

inline void intrusive_ptr_add_ref(const RefCountedInterface* p) {
    p->AddRef();
}
inline void intrusive_ptr_release(const RefCountedInterface* p) {
    p->Release();
}

} // namespace fluxcore::utility
