#include "Proj/Backend.h"

#include <atomic>
#include <mutex>
#include <utility>

namespace Proj {
namespace {

std::mutex slotMutex;
Fnd::InterfaceRef<IBackend> installedBackend;

// Answers for itself and hands out the preferences it was made with.
class PreferencesBackend final : public IBackend {
public:
    explicit PreferencesBackend(Fnd::InterfaceRef<IPreferences> preferences)
        : preferences_(std::move(preferences)) {}

    void AddRef() override { count_.fetch_add(1, std::memory_order_relaxed); }
    void Release() override {
        if (count_.fetch_sub(1, std::memory_order_acq_rel) == 1)
            delete this;
    }
    Fnd::QueryResult QueryInterface(const Fnd::InterfaceID& id, void** out) override {
        if (id == IBackend::GetInterfaceID() || id == Fnd::FndUnknown::GetInterfaceID()) {
            AddRef();
            *out = static_cast<IBackend*>(this);
            return Fnd::kQueryOK;
        }
        if (id == IPreferences::GetInterfaceID() && preferences_) {
            preferences_.get()->AddRef();
            *out = preferences_.get();
            return Fnd::kQueryOK;
        }
        *out = nullptr;
        return Fnd::kQueryNoInterface;
    }
    Fnd::FndUnknown* GetRawObject() override { return this; }

private:
    std::atomic<int> count_{0};
    Fnd::InterfaceRef<IPreferences> preferences_;
};

} // namespace

Fnd::InterfaceRef<IBackend> GetBackend() {
    std::lock_guard lock(slotMutex);
    return installedBackend;
}

void SetBackend(Fnd::InterfaceRef<IBackend> backend) {
    Fnd::InterfaceRef<IBackend> previous;
    {
        std::lock_guard lock(slotMutex);
        previous = std::exchange(installedBackend, std::move(backend));
    }
    // previous is released here, outside the lock, in case its destructor reaches for the slot.
}

Fnd::InterfaceRef<IBackend> MakeBackend(Fnd::InterfaceRef<IPreferences> preferences) {
    return Fnd::InterfaceRef<IBackend>(new PreferencesBackend(std::move(preferences)));
}

ScopedBackend::ScopedBackend(Fnd::InterfaceRef<IPreferences> preferences) : previous_(GetBackend()) {
    SetBackend(MakeBackend(std::move(preferences)));
}

ScopedBackend::~ScopedBackend() {
    SetBackend(std::move(previous_));
}

} // namespace Proj
