#pragma once
#include <memory>

#include <boost/intrusive_ptr.hpp>

#include "Fnd/WString.h"
#include "IGD/Export.h"
#include "QL/TranscodeSetting.h"
#include "fluxcore/RefCountedObject.h"

namespace IGD {

// One place an ingest writes to: a base folder, an optional subfolder, and its own transcode,
// rename and metadata choices.
class IGD_EXPORT IngestDestination : public fluxcore::utility::RefCountedObject {
public:
    IngestDestination() = default;
    // Deep-copies the transcode setting and leaves enabled alone: whoever copies a destination
    // decides whether the copy is enabled.
    IngestDestination(const IngestDestination& other);
    IngestDestination& operator=(const IngestDestination& other);

    bool IsEnabled() const { return enabled_; }
    void SetEnabled(bool enabled) { enabled_ = enabled; }

    const Fnd::WString& GetDestinationPath() const { return destinationPath_; }
    // Stored normalised.
    void SetDestinationPath(const Fnd::WString& path);
    // The folder that receives the files: the base folder joined with the subfolder.
    Fnd::WString GetFullDestinationPath() const;

    void SetSubFolder(const Fnd::WString& subFolder) { subFolder_ = subFolder; }
    const Fnd::WString& GetSubFolder() const { return subFolder_; }
    bool HasSubFolder() const { return !subFolder_.empty(); }

    // Null: this destination has no transcode section at all.
    std::shared_ptr<QL::IngestTask::TranscodeSetting> GetTranscodeSetting() const {
        return transcodeSetting_;
    }
    void SetTranscodeSetting(std::shared_ptr<QL::IngestTask::TranscodeSetting> setting);

    bool IsPrimary() const { return primary_; }
    void SetPrimary(bool primary) { primary_ = primary; }
    bool IsApplyRename() const { return applyRename_; }
    void SetApplyRename(bool apply) { applyRename_ = apply; }
    bool IsApplyMetadata() const { return applyMetadata_; }
    void SetApplyMetadata(bool apply) { applyMetadata_ = apply; }

private:
    Fnd::WString destinationPath_;
    Fnd::WString subFolder_;
    std::shared_ptr<QL::IngestTask::TranscodeSetting> transcodeSetting_;
    bool primary_ = false;
    bool applyRename_ = false;
    bool applyMetadata_ = false;
    // The constructor leaves the choice to each creator; false is the safe reading.
    bool enabled_ = false;
};

using IngestDestinationRef = boost::intrusive_ptr<IngestDestination>;

} // namespace IGD
