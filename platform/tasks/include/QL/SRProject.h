#pragma once
// The project library as an ingest sees it: it says which bin a dialog's clips will land in, and
// hears which files an ingest is about to bring, so that a panel asking for their metadata can
// name them.
#include <memory>
#include <vector>

#include "Fnd/WString.h"
#include "QL/IngestItem.h"
#include "fluxcore/Guid.h"

namespace QL {

class IngestLibraryNotifier {
public:
    virtual ~IngestLibraryNotifier() = default;
    // Answers later, posted on kStation_IngestMedia, with UpdateTargetBinMessage bearing both ids.
    virtual void RequestTargetBin(const fluxcore::utility::Guid& one, const fluxcore::utility::Guid& two) = 0;
    // The files of the ingest being prepared, in order, under the two ids of the announcement.
    virtual void AnnounceIngestItems(const std::vector<IngestItem>& items, const fluxcore::utility::Guid& one,
                                     const fluxcore::utility::Guid& two) = 0;
};

class SRProject {
public:
    static SRProject* GetInstance();

    IngestLibraryNotifier* GetIngestLibraryNotifier() const { return notifier_.get(); }
    // A host with a project library of its own installs its notifier; null puts the default back.
    void SetIngestLibraryNotifier(std::shared_ptr<IngestLibraryNotifier> notifier);

    // The default notifier's answers: the bin the host shows as current ("" is the root bin) and the
    // files last announced.
    void SetTargetBin(Fnd::WString bin);
    Fnd::WString GetTargetBin() const;
    std::vector<IngestItem> GetAnnouncedItems() const;

private:
    SRProject();
    std::shared_ptr<IngestLibraryNotifier> notifier_;
};

} // namespace QL
