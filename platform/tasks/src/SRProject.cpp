#include "QL/SRProject.h"

#include <mutex>

#include "Fnd/StationUtils.h"
#include "QL/IngestMessages.h"

namespace QL {
namespace {

struct LibraryState {
    std::mutex mutex;
    Fnd::WString targetBin;
    std::vector<IngestItem> announced;
};

LibraryState& State() {
    static LibraryState state;
    return state;
}

// Without a host's own library the answer is the bin the host named current, posted as a library
// would answer: after the request has returned.
class DefaultNotifier : public IngestLibraryNotifier {
public:
    void RequestTargetBin(const fluxcore::utility::Guid& one, const fluxcore::utility::Guid& two) override {
        Fnd::StationUtils::PostMessageToUIThread(
            kStation_IngestMedia, UpdateTargetBinMessage(one, two, SRProject::GetInstance()->GetTargetBin()), false);
    }
    void AnnounceIngestItems(const std::vector<IngestItem>& items, const fluxcore::utility::Guid&,
                             const fluxcore::utility::Guid&) override {
        std::lock_guard lock(State().mutex);
        State().announced = items;
    }
};

} // namespace

SRProject::SRProject() : notifier_(std::make_shared<DefaultNotifier>()) {}

SRProject* SRProject::GetInstance() {
    static SRProject instance;
    return &instance;
}

void SRProject::SetIngestLibraryNotifier(std::shared_ptr<IngestLibraryNotifier> notifier) {
    notifier_ = notifier ? std::move(notifier) : std::make_shared<DefaultNotifier>();
}

void SRProject::SetTargetBin(Fnd::WString bin) {
    std::lock_guard lock(State().mutex);
    State().targetBin = std::move(bin);
}

Fnd::WString SRProject::GetTargetBin() const {
    std::lock_guard lock(State().mutex);
    return State().targetBin;
}

std::vector<IngestItem> SRProject::GetAnnouncedItems() const {
    std::lock_guard lock(State().mutex);
    return State().announced;
}

} // namespace QL
