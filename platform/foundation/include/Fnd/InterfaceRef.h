#pragma once
#include <utility>

#include "Fnd/FndUnknown.h"
#include "Fnd/NullInterfaceException.h"

namespace Fnd {

// Owning reference to an interface derived from FndUnknown. Using a null reference through
// -> or * raises NullInterfaceException. Each interface type provides static GetInterfaceID().
template <class I> class InterfaceRef {
public:
    InterfaceRef() = default;
    InterfaceRef(std::nullptr_t) {}
    // Takes over one reference the caller already holds.
    static InterfaceRef Adopt(I* raw) {
        InterfaceRef ref;
        ref.ptr_ = raw;
        return ref;
    }
    // Adds a reference of its own.
    explicit InterfaceRef(I* raw) : ptr_(raw) {
        if (ptr_)
            ptr_->AddRef();
    }
    // Query by interface identity; null when the object does not implement I.
    template <class Other> static InterfaceRef Query(const InterfaceRef<Other>& other) {
        InterfaceRef ref;
        if (other) {
            void* out = nullptr;
            if (other.get()->QueryInterface(I::GetInterfaceID(), &out) == kQueryOK)
                ref.ptr_ = static_cast<I*>(out);
        }
        return ref;
    }

    InterfaceRef(const InterfaceRef& other) : InterfaceRef(other.ptr_) {}
    InterfaceRef(InterfaceRef&& other) noexcept : ptr_(std::exchange(other.ptr_, nullptr)) {}
    InterfaceRef& operator=(InterfaceRef other) noexcept {
        std::swap(ptr_, other.ptr_);
        return *this;
    }
    ~InterfaceRef() {
        if (ptr_)
            ptr_->Release();
    }

    I* get() const { return ptr_; }
    I* operator->() const {
        if (!ptr_)
            throw NullInterfaceException();
        return ptr_;
    }
    I& operator*() const { return *operator->(); }
    explicit operator bool() const { return ptr_ != nullptr; }
    void reset() { InterfaceRef().swap(*this); }
    void swap(InterfaceRef& other) noexcept { std::swap(ptr_, other.ptr_); }

    friend bool operator==(const InterfaceRef& a, const InterfaceRef& b) { return a.ptr_ == b.ptr_; }

private:
    I* ptr_ = nullptr;
};

} // namespace Fnd
