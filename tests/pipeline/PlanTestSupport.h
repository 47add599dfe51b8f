#pragma once
// What the tests of the plan share: a fixture that owns every piece of global state the plan
// reads (task service, interaction driver, host kind, document manager, callbacks, usage logger,
// posted messages) and resets it, a recording usage logger, and builders for sessions.
#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <initializer_list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "Fnd/Listener.h"
#include "IGD/IIngestDialogData.h"
#include "IGD/SelectedClipItem.h"
#include "IGD/SelectedFolderItem.h"
#include "QL/IngestMessages.h"
#include "fluxcore/UsageLogger.h"
#include "support/RecordingTaskService.h"
#include "support/ScriptedInteractionDriver.h"
#include "support/TempTree.h"

namespace igd::test {

// A usage logger that keeps every event it was asked for and notes when each was sent.
class RecordingUsageLogger : public fluxcore::config::UsageLogger {
public:
    struct Event {
        std::string category;
        std::string subcategory;
        std::string name;
        std::string extra;
        std::vector<std::pair<std::string, std::string>> attributes;
        // What the probe answered when the event was sent.
        std::size_t probeAtSend = 0;
    };

    fluxcore::config::UsageEventRef NewEvent(std::string_view category, std::string_view subcategory,
                                             std::string_view name, std::string_view extra) override;

    // Called as each event is sent; lets a test see what had happened by then.
    void SetProbe(std::function<std::size_t()> probe) { probe_ = std::move(probe); }

    std::size_t Opened() const { return opened_; }
    const std::vector<Event>& Sent() const { return sent_; }

    // The values of one sent event, in the order they were added.
    static std::vector<std::string> Values(const Event& event);

private:
    friend class RecordingUsageEvent;
    std::size_t opened_ = 0;
    std::vector<Event> sent_;
    std::function<std::size_t()> probe_;
};

// Every message posted to the ingest station, once the queue has run.
class IngestMessageRecorder : public Fnd::Listener {
public:
    IngestMessageRecorder();
    ~IngestMessageRecorder() override;
    IngestMessageRecorder(const IngestMessageRecorder&) = delete;
    IngestMessageRecorder& operator=(const IngestMessageRecorder&) = delete;

    void ListenToMessage(const Fnd::StationID& station, const Fnd::Message& message) override;

    // Runs what was posted and answers the ids delivered so far, in order.
    const std::vector<Fnd::MessageID>& Drain();
    // The ids delivered so far, without running the queue.
    const std::vector<Fnd::MessageID>& Delivered() const { return ids_; }
    const std::vector<QL::StartIngestMessage>& Starts() const { return starts_; }

private:
    std::vector<Fnd::MessageID> ids_;
    std::vector<QL::StartIngestMessage> starts_;
};

// Resets all global state the plan reads, before and after each test.
class PlanTest : public ::testing::Test {
protected:
    PlanTest();
    ~PlanTest() override;

    static Fnd::WString W(std::string_view text) { return Fnd::FromUTF8(text); }

    IGD::IngestDialogDataRef NewSession();
    // A session whose source root is the folder "src" of the tree.
    IGD::IngestDialogDataRef NewSessionOverSource();

    // A single-file clip (or a folder-based one with single false) under the session's root.
    IGD::SelectedClipItemRef AddClip(IGD::IIngestDialogData& session, std::string_view itemPath,
                                     std::initializer_list<std::string_view> extras = {},
                                     std::string_view outputName = {}, bool single = true);
    IGD::SelectedFolderItemRef AddFolder(IGD::IIngestDialogData& session, std::string_view itemPath,
                                         std::initializer_list<std::string_view> extras);
    // An enabled copy destination at the tree's folder, made if missing.
    IGD::IngestDestinationRef AddDestination(IGD::IIngestDialogData& session, std::string_view folder,
                                             bool primary, bool applyRename = false,
                                             bool applyMetadata = false);
    // Gives the destination a transcode setting that is on.
    static std::shared_ptr<QL::IngestTask::TranscodeSetting> Transcode(IGD::IngestDestination& destination,
                                                                       bool concatenate = false);

    // Runs the copy decisions into the session; answers their result.
    bool Decide(IGD::IIngestDialogData& session);
    // Copy decisions, then the plan, under batch_.
    void DecideAndRun(const IGD::IngestDialogDataRef& session);

    // Metadata template values and panel answers, as the finish handler would set them.
    static QL::IngestCustomData CustomDataWithMetadata();

    ScopedTaskService tasks;
    ScopedInteractionDriver ui;
    TempTree tree;
    IngestMessageRecorder messages;
    const fluxcore::utility::Guid batch_ = fluxcore::utility::Guid::CreateUnique();

private:
    static void ResetGlobalState();
};

} // namespace igd::test
