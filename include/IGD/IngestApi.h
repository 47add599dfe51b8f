#pragma once
// The direct entry points: ingest without a dialog, and control of the running batch.
#include <vector>

#include <boost/function.hpp>

#include "Fnd/Date.h"
#include "Fnd/WString.h"
#include "IGD/Export.h"
#include "IGD/IIngestDialogData.h"
#include "QL/IngestMediaGroup.h"
#include "fluxcore/Guid.h"

namespace IGD {

// Ingests the group's first file (and its sidecars) or, with viaProvider, what the media
// providers make of each path; copies to group.destinationPath when transferMode is "Copy".
IGD_EXPORT void DoIngestMedia(const QL::IngestMediaGroup& group, bool useGivenBatch, bool primary,
                              bool viaProvider, fluxcore::utility::Guid batch);

// Ingests one file with the caller's prepared session; answers the batch it used.
IGD_EXPORT fluxcore::utility::Guid DoIngestOneMedia(const Fnd::WString& path, IngestDialogDataRef session,
                                                    const Fnd::Date date, bool directFile);

// What the file will be called, relative to the session's source root (a path when it lies in a
// sub-folder). Leaves the session prepared, so a following DoIngestOneMedia with it gathers
// nothing again. forceNames renames items of any provider, not only plain folders.
IGD_EXPORT Fnd::WString GetIngestFileOutputName(const Fnd::WString& path, IngestDialogDataRef session,
                                                const Fnd::Date date, bool forceNames);

IGD_EXPORT void PauseIngest();
IGD_EXPORT void ResumeIngest();
IGD_EXPORT void StopIngest();

// (target path, extension, names, directory, text, names) -> the name to write to.
using GenerateAutomaticFileNameFunction =
    boost::function<Fnd::WString(const Fnd::WString&, const Fnd::WString&, const std::vector<Fnd::WString>&,
                                 const Fnd::WString&, const Fnd::WString&, const std::vector<Fnd::WString>&)>;
using IngestCopyOutputFileNameFunction = boost::function<void(const Fnd::WString&)>;

// Replace the process-wide function; an empty function clears it.
IGD_EXPORT void SetGenerateAutomaticFileNameCallback(const GenerateAutomaticFileNameFunction& function);
IGD_EXPORT void SetIngestCopyOutputFileNameCallback(const IngestCopyOutputFileNameFunction& function);

} // namespace IGD
