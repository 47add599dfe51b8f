// The entry points a host calls without a dialog: DoIngestMedia, DoIngestOneMedia and the
// control of the running batch.
#include <gtest/gtest.h>

#include <filesystem>
#include <set>

#include "Fnd/Listener.h"
#include "Fnd/RunLoop.h"
#include "Fnd/StationUtils.h"
#include "IGD/IngestApi.h"
#include "tests/pipeline/PlanTestSupport.h"
#include "Proj/Backend.h"
#include "QL/CopySetting.h"
#include "QL/IngestMessages.h"
#include "tests/settings/RecordingPreferences.h"

namespace igd::test {
namespace {

using fluxcore::utility::Guid;
using Fnd::WString;

// Every message posted to the ingest station, once the queue has run.
class MessageRecorder : public Fnd::Listener {
public:
    MessageRecorder() { Fnd::StationUtils::AddListener(QL::kStation_IngestMedia, this); }
    ~MessageRecorder() override { Fnd::StationUtils::RemoveListener(QL::kStation_IngestMedia, this); }
    void ListenToMessage(const Fnd::StationID&, const Fnd::Message& message) override {
        ids.push_back(message.GetMessageID());
        if (const auto* start = Fnd::MessageCast<QL::StartIngestMessage>(message))
            starts.push_back(*start);
    }
    // Runs what was posted and answers the ids delivered so far, in order.
    const std::vector<Fnd::MessageID>& Drain() {
        Fnd::GetDefaultQueue().Drain();
        return ids;
    }
    // The batches of the start messages, once the queue has run.
    std::vector<Guid> Started() {
        Drain();
        std::vector<Guid> batches;
        for (const QL::StartIngestMessage& start : starts)
            batches.push_back(start.batch);
        return batches;
    }

    std::vector<Fnd::MessageID> ids;
    std::vector<QL::StartIngestMessage> starts;
};

class DirectTest : public PlanTest {
protected:
    DirectTest() {
        tree.MakeFile("in/clip.MOV", "frames");
        tree.MakeFile("in/clip.MOV.xmp");
        tree.MakeFile("in/clip.xmp");
        tree.MakeFile("in/other.MOV");
        tree.MakeFolder("out");
    }

    QL::IngestMediaGroup CopyGroup() const {
        QL::IngestMediaGroup group;
        group.paths = {tree.Path("in/clip.MOV")};
        group.transferMode = u"Copy";
        group.destinationPath = tree.Path("out");
        return group;
    }

    // A path of the tree, or an empty one for an empty name.
    WString PathOrEmpty(const std::string& relative) const {
        return relative.empty() ? WString() : tree.Path(relative);
    }

    void ExpectNothingHappened() {
        EXPECT_TRUE(tasks->Tasks().empty());
        EXPECT_TRUE(messages.Drain().empty());
        EXPECT_TRUE(ui->Boxes().empty());
    }

    MessageRecorder messages;
    const Guid given_ = Guid::CreateUnique();
};

// Neither entry point does anything without a file to start from, whatever paths follow it.
TEST_F(DirectTest, WithoutAUsableFirstFileNothingHappens) {
    for (const char* first : {static_cast<const char*>(nullptr), "", "in/missing.MOV", "in"}) {
        SCOPED_TRACE(first == nullptr ? "no paths" : first);
        QL::IngestMediaGroup group = CopyGroup();
        group.paths.clear();
        if (first != nullptr)
            group.paths = {PathOrEmpty(first), u"clip.MOV", tree.Path("in/other.MOV")};
        IGD::DoIngestMedia(group, true, true, false, given_);

        if (first != nullptr) {
            auto session = NewSession();
            AddDestination(*session, "out", true);
            // DoIngestOneMedia still answers a batch, one that nothing uses.
            EXPECT_FALSE(IGD::DoIngestOneMedia(PathOrEmpty(first), session, {}, true).IsZero());
            EXPECT_TRUE(session->GetSelectedItems().empty());
        }
        ExpectNothingHappened();
    }
}

TEST_F(DirectTest, WithTheGivenBatchOnlyTheFirstFileIsCopiedWithTheSidecarsThatExistAndStarted) {
    std::filesystem::remove(tree.NativePath("in/clip.MOV.xmp"));
    QL::IngestMediaGroup group = CopyGroup();
    group.paths.push_back(u"other.MOV");

    IGD::DoIngestMedia(group, true, /*primary=*/false, false, given_);

    ASSERT_EQ(Kinds(), KindList{TaskKind::Copy});
    EXPECT_EQ(tasks->Tasks()[0].batch, given_);
    EXPECT_FALSE(CopyAt(0).addToProject);
    ASSERT_EQ(CopyAt(0).units.size(), 1u);
    EXPECT_EQ(Moves(UnitAt(CopyAt(0))), (Strings{"in/clip.MOV > out/clip.MOV", "in/clip.xmp > out/clip.xmp"}));
    // Posted, not delivered: the host's queue runs it after the call returned.
    EXPECT_TRUE(messages.ids.empty());
    EXPECT_EQ(messages.Drain(), std::vector<Fnd::MessageID>{QL::StartIngestMessage::ID()});
    EXPECT_EQ(messages.Started(), std::vector<Guid>{given_});
    EXPECT_EQ(messages.starts[0].target, u"");
}

// A method that names no checksum takes the one the user's preferences name.
TEST_F(DirectTest, TheGroupsTextsChooseTheVerification) {
    using namespace QL::IngestTask;
    const auto preferences = RecordingPreferences::Make();
    const Proj::ScopedBackend backend{preferences->Interface()};
    const struct {
        const char16_t* verify;
        const char16_t* method;
        const char* preferred; // the stored checksum preference; none when unset
        std::uint32_t expected;
    } cases[] = {{u"verify", u"FileSize", nullptr, kVerifyNone},
                 {u"Verify", u"bitbybit", nullptr, kVerifyMD5},
                 {u"Verify", u"Other", "sha1", kVerifyMD5},
                 {u"Verify", u"", "xxh3", kVerifyXXH3},
                 {u"Verify", u"FileSize", "xxh64", kVerifyFileSize},
                 {u"Verify", u"BitByBit", nullptr, kVerifyBitByBit},
                 {u"Verify", u"xxh128", "md5", kVerifyXXH128}};
    for (const auto& c : cases) {
        SCOPED_TRACE(Fnd::ToUTF8(c.verify) + "/" + Fnd::ToUTF8(c.method) + "/" + (c.preferred ? c.preferred : "-"));
        preferences->values.erase(K("Local.VerifyChecksum"));
        if (c.preferred)
            preferences->values[K("Local.VerifyChecksum")] = std::string(c.preferred);
        tasks->Clear();
        QL::IngestMediaGroup group = CopyGroup();
        group.verify = c.verify;
        group.verifyMethod = c.method;

        IGD::DoIngestMedia(group, true, true, false, given_);

        ASSERT_EQ(Kinds(), KindList{TaskKind::Copy});
        EXPECT_EQ(CopyAt(0).verifyMode, c.expected);
    }
}

TEST_F(DirectTest, WithoutACopyToAnExistingFolderTheFileIsImportedUnderAFreshBatchWithoutABox) {
    tree.MakeFile("afile");
    const struct {
        const char* name;
        const char16_t* transferMode;
        const char* destination; // below the tree; empty for an empty path
    } cases[] = {{"LowerCaseCopy", u"copy", "out"}, {"MissingDestination", u"Copy", "nowhere"},
                 {"DestinationIsAFile", u"Copy", "afile"}};
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        tasks->Clear();
        QL::IngestMediaGroup group = CopyGroup();
        group.transferMode = c.transferMode;
        group.destinationPath = PathOrEmpty(c.destination);

        IGD::DoIngestMedia(group, true, true, false, given_);

        ASSERT_EQ(Kinds(), KindList{TaskKind::Import});
        const RecordedTask& task = tasks->Tasks()[0];
        EXPECT_NE(task.batch, given_);
        EXPECT_EQ(messages.Started().back(), task.batch);
        const QL::IngestItemMap& items = task.Import().importItems;
        ASSERT_EQ(items.size(), 1u);
        EXPECT_EQ(items.at(tree.Path("in/clip.MOV"))->extraPaths,
                  (std::vector<WString>{tree.Path("in/clip.MOV.xmp"), tree.Path("in/clip.xmp")}));
    }
    EXPECT_TRUE(ui->Boxes().empty());
}

TEST_F(DirectTest, WithoutTheGivenBatchTheCheckedDestinationCopiesNothingButTheBatchStarts) {
    IGD::DoIngestMedia(CopyGroup(), false, true, false, given_);

    EXPECT_TRUE(ui->Boxes().empty());
    EXPECT_TRUE(tasks->Tasks().empty());
    const std::vector<Guid> started = messages.Started();
    ASSERT_EQ(started.size(), 1u);
    EXPECT_NE(started[0], given_);
    EXPECT_FALSE(started[0].IsZero());
}

TEST_F(DirectTest, GivingUpAnExistingFileQuestionEndsTheRequest) {
    tree.MakeFile("out/clip.MOV");
    ui->QueueExistingPathCancel();

    IGD::DoIngestMedia(CopyGroup(), true, true, false, given_);

    EXPECT_EQ(ui->ExistingPathQuestions().size(), 1u);
    EXPECT_TRUE(tasks->Tasks().empty());
    EXPECT_TRUE(messages.Drain().empty());
}

TEST_F(DirectTest, DoIngestOneMediaTakesADirectFileAsASingleFileClipAndCalledAgainResubmitsIt) {
    auto session = NewSession();
    AddDestination(*session, "out", true);
    // A host that asked for the minimum metadata itself puts it in the session; no panel is shown.
    QL::IngestCustomData custom = session->GetCustomData();
    custom.minimumMetadata.keywords.insert(u"beach");
    custom.minimumMetadata.applyToAllDestinations = true;
    session->SetCustomData(custom);

    const Guid first = IGD::DoIngestOneMedia(tree.Path("in/clip.MOV"), session, {}, true);

    ASSERT_EQ(session->GetSelectedItems().size(), 1u);
    ASSERT_EQ(Kinds(), KindList{TaskKind::Copy});
    EXPECT_EQ(tasks->Tasks()[0].batch, first);
    EXPECT_EQ(tasks->Tasks()[0].customData.minimumMetadata.keywords, std::set<Fnd::WString>{u"beach"});
    EXPECT_TRUE(tasks->Tasks()[0].customData.minimumMetadata.applyToAllDestinations);
    const Strings moves{"in/clip.MOV > out/clip.MOV", "in/clip.MOV.xmp > out/clip.MOV.xmp",
                        "in/clip.xmp > out/clip.xmp"};
    EXPECT_EQ(Moves(UnitAt(CopyAt(0))), moves);

    // Another path changes nothing: the session's items are what is ingested, under a new batch.
    const Guid clipGuid = session->GetSelectedItems()[0]->GetClipGuid();
    const Guid second = IGD::DoIngestOneMedia(tree.Path("in/other.MOV"), session, {}, true);

    EXPECT_NE(first, second);
    ASSERT_EQ(session->GetSelectedItems().size(), 1u);
    EXPECT_EQ(session->GetSelectedItems()[0]->GetClipGuid(), clipGuid);
    ASSERT_EQ(Kinds(), (KindList{TaskKind::Copy, TaskKind::Copy}));
    EXPECT_EQ(tasks->Tasks()[1].batch, second);
    EXPECT_EQ(Moves(UnitAt(CopyAt(1))), moves);
    EXPECT_EQ(messages.Started(), (std::vector<Guid>{first, second}));
}

// Without its own batch a request is checked first: a refusal ends it with one box (the checks'
// own), no task and no start of the batch.
TEST_F(DirectTest, ARefusedCheckEndsARequestWithoutItsOwnBatch) {
    QL::IngestMediaGroup group = CopyGroup();
    group.destinationPath = tree.Path("in");
    ui->QueueBoxAnswer(0);

    IGD::DoIngestMedia(group, /*useGivenBatch=*/false, true, false, given_);

    EXPECT_EQ(ui->Boxes().size(), 1u);
    EXPECT_TRUE(tasks->Tasks().empty());
    EXPECT_TRUE(messages.Drain().empty());
}

// Later paths name files relative to the first one's folder, a folder below it included; every
// item keeps the first path's root, so none is looked for in another item's folder.
TEST_F(DirectTest, LaterProviderPathsAreFoundFromTheFirstPathsFolderAndShareItsRoot) {
    tree.MakeFile("in/sub/B002.MOV");
    QL::IngestMediaGroup group = CopyGroup();
    group.paths = {tree.Path("in/clip.MOV"), u"sub/B002.MOV", tree.Path("in/other.MOV")};

    IGD::DoIngestMedia(group, true, true, /*viaProvider=*/true, given_);

    EXPECT_TRUE(ui->Boxes().empty());
    ASSERT_EQ(Kinds(), KindList{TaskKind::Copy});
    std::set<std::string> moves;
    for (std::size_t unit = 0; unit < CopyAt(0).units.size(); ++unit)
        for (const std::string& move : Moves(UnitAt(CopyAt(0), unit)))
            moves.insert(move);
    EXPECT_EQ(moves, (std::set<std::string>{"in/clip.MOV > out/clip.MOV", "in/clip.xmp > out/clip.xmp",
                                            "in/sub/B002.MOV > out/sub/B002.MOV",
                                            "in/other.MOV > out/other.MOV"}));
}

TEST_F(DirectTest, PauseResumeAndStopPostTheirMessagesInOrder) {
    IGD::PauseIngest();
    IGD::ResumeIngest();
    IGD::StopIngest();
    EXPECT_TRUE(messages.ids.empty());

    EXPECT_EQ(messages.Drain(),
              (std::vector<Fnd::MessageID>{QL::PauseIngestMessage::ID(), QL::ResumeIngestMessage::ID(),
                                           QL::CancelIngestMessage::ID()}));
}

} // namespace
} // namespace igd::test
