#include "IGD/IngestDestination.h"

#include "Mid/Utilities.h"

namespace IGD {
namespace {

// A destination's transcode setting may be shared with the settings model; a copied destination
// gets its own so that changing one never changes the other.
std::shared_ptr<QL::IngestTask::TranscodeSetting>
CopyTranscodeSetting(const std::shared_ptr<QL::IngestTask::TranscodeSetting>& setting) {
    return setting ? std::make_shared<QL::IngestTask::TranscodeSetting>(*setting) : nullptr;
}

} // namespace

IngestDestination::IngestDestination(const IngestDestination& other)
    : fluxcore::utility::RefCountedInterface(), fluxcore::utility::RefCountedObject(other),
      destinationPath_(other.destinationPath_), subFolder_(other.subFolder_),
      transcodeSetting_(CopyTranscodeSetting(other.transcodeSetting_)), primary_(other.primary_),
      applyRename_(other.applyRename_), applyMetadata_(other.applyMetadata_) {}

IngestDestination& IngestDestination::operator=(const IngestDestination& other) {
    if (this != &other) {
        destinationPath_ = other.destinationPath_;
        subFolder_ = other.subFolder_;
        transcodeSetting_ = CopyTranscodeSetting(other.transcodeSetting_);
        primary_ = other.primary_;
        applyRename_ = other.applyRename_;
        applyMetadata_ = other.applyMetadata_;
    }
    return *this;
}

void IngestDestination::SetDestinationPath(const Fnd::WString& path) {
    destinationPath_ = Mid::Utilities::NormalizePathWithoutUNC(path);
}

Fnd::WString IngestDestination::GetFullDestinationPath() const {
    return Mid::Utilities::CombinePaths(destinationPath_, subFolder_);
}

void IngestDestination::SetTranscodeSetting(std::shared_ptr<QL::IngestTask::TranscodeSetting> setting) {
    transcodeSetting_ = std::move(setting);
}

} // namespace IGD
