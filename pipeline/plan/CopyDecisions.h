#pragma once
// What to do, for each file of each destination, when the copy would meet an existing file. The
// user is asked before anything is submitted; the plan later only reads the answers.
#include <cstdint>

#include "Fnd/WString.h"
#include "IGD/IIngestDialogData.h"

namespace IGD {

// Fills decisions for every enabled copying destination. False when the user gave up: the
// decisions are then incomplete and nothing may be submitted. applyToAll carries an answer the
// user gave for everything over all destinations of the run.
bool BuildCopyDecisions(const Fnd::WString& sourceRoot, const SelectedItemList& items,
                        const DestinationList& destinations, CopyDecisionMap& decisions);

// BuildCopyDecisions over the session's own items and destinations, the answers stored in the
// session. False when the user gave up; the session's decisions are then left as they were.
bool DecideSessionCopies(IIngestDialogData& session);

// Decides the item's own path and each of its extra paths at one destination.
bool DecideItemCopy(SelectedItem& item, const Fnd::WString& sourceRoot, IngestDestination& destination,
                    CopyActionMap& actions, std::int32_t& applyToAll);

// Decides one path: 0 when nothing is or will be at the target, else the standing answer for all,
// else the user's answer.
bool DecidePathCopy(const Fnd::WString& source, const Fnd::WString& target, std::int32_t& action,
                    std::int32_t& applyToAll);

} // namespace IGD
