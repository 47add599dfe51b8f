#pragma once
#include <string_view>
#include <utility>

#include "Fnd/Listener.h"
#include "Fnd/Message.h"
#include "Fnd/WString.h"
#include "QL/MetadataFieldSet.h"
#include "fluxcore/Guid.h"

namespace QL {

// The station of all ingest messages.
inline const Fnd::StationID kStation_IngestMedia{"QL.IngestMedia"};

// Run all tasks submitted under the batch. target is the dialog's target bin, else empty.
struct StartIngestMessage : Fnd::MessageT<StartIngestMessage> {
    static constexpr std::string_view kTypeName = "QL::StartIngestMessage";
    StartIngestMessage() = default;
    StartIngestMessage(fluxcore::utility::Guid b, Fnd::WString t) : batch(b), target(std::move(t)) {}
    fluxcore::utility::Guid batch;
    Fnd::WString target;
};

struct PauseIngestMessage : Fnd::MessageT<PauseIngestMessage> {
    static constexpr std::string_view kTypeName = "QL::PauseIngestMessage";
};

struct ResumeIngestMessage : Fnd::MessageT<ResumeIngestMessage> {
    static constexpr std::string_view kTypeName = "QL::ResumeIngestMessage";
};

struct CancelIngestMessage : Fnd::MessageT<CancelIngestMessage> {
    static constexpr std::string_view kTypeName = "QL::CancelIngestMessage";
};

// The project library's answer to a dialog that asked where its clips will land. The two ids are
// those of the request, so that a dialog takes only its own answer.
struct UpdateTargetBinMessage : Fnd::MessageT<UpdateTargetBinMessage> {
    static constexpr std::string_view kTypeName = "QL::UpdateTargetBinMessage";
    UpdateTargetBinMessage() = default;
    UpdateTargetBinMessage(fluxcore::utility::Guid one, fluxcore::utility::Guid two, Fnd::WString bin)
        : requestOne(one), requestTwo(two), binName(std::move(bin)) {}
    fluxcore::utility::Guid requestOne;
    fluxcore::utility::Guid requestTwo;
    Fnd::WString binName;
};

// The minimum metadata step is over, with or without a panel: the dialog goes on only on success,
// with what the panel answered.
struct MiniMetadataFinishedMessage : Fnd::MessageT<MiniMetadataFinishedMessage> {
    static constexpr std::string_view kTypeName = "QL::MiniMetadataFinishedMessage";
    MiniMetadataFinishedMessage() = default;
    MiniMetadataFinishedMessage(bool ok, MinimumMetadataResult answer) : success(ok), result(std::move(answer)) {}
    bool success = false;
    MinimumMetadataResult result;
};

} // namespace QL
