#include "Fnd/InteractionDriver.h"

#include <mutex>
#include <stdexcept>
#include <utility>

#include "Fnd/FileManager.h"

namespace Fnd {

namespace {

// Stands in when nobody can answer: the safe answer to every question.
class UnattendedDriver : public IInteractionDriver {
public:
    int AskMessageBox(const MessageBoxRequest& request) override {
        if (request.buttons.empty())
            throw std::invalid_argument("AskMessageBox: a box needs at least one button");
        if (request.defaultButton < 0 ||
            static_cast<std::size_t>(request.defaultButton) >= request.buttons.size())
            throw std::invalid_argument("AskMessageBox: the default button is not one of the buttons");
        return request.defaultButton;
    }

    ExistingPathAnswer AskExistingPath(const ExistingPathQuestion&) override {
        return ExistingPathAnswer{.proceed = false, .action = 0, .applyToAll = false};
    }
};

struct DriverSlot {
    std::mutex mutex;
    std::shared_ptr<IInteractionDriver> unattended = std::make_shared<UnattendedDriver>();
    std::shared_ptr<IInteractionDriver> installed = unattended;
};

DriverSlot& Slot() {
    static DriverSlot* slot = new DriverSlot;
    return *slot;
}

} // namespace

void IInteractionDriver::RevealFile(const WString& path) {
    ShowInFileManager(path);
}

IInteractionDriver& GetInteractionDriver() {
    auto& slot = Slot();
    std::lock_guard lock(slot.mutex);
    return *slot.installed;
}

void SetInteractionDriver(std::shared_ptr<IInteractionDriver> driver) {
    auto& slot = Slot();
    std::shared_ptr<IInteractionDriver> previous;
    {
        std::lock_guard lock(slot.mutex);
        previous = std::exchange(slot.installed, driver ? std::move(driver) : slot.unattended);
    }
}

} // namespace Fnd
