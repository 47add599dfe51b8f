// The entry points a host calls without a dialog: DoIngestMedia, DoIngestOneMedia and the
// control of the running batch.
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <iterator>
#include <ostream>
#include <vector>

#include "HostApp/ApplicationType.h"
#include "IGD/IngestApi.h"
#include "PlanTestSupport.h"

namespace igd::test {
namespace {

using Fnd::WString;

std::vector<QL::CopyEntry> Entries(const QL::IngestTask::CopySetting& setting, std::size_t unit = 0) {
    auto it = setting.units.begin();
    std::advance(it, static_cast<std::ptrdiff_t>(unit));
    return {(*it)->entries.begin(), (*it)->entries.end()};
}

class DoIngestMediaTest : public PlanTest {
protected:
    DoIngestMediaTest() {
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

    const fluxcore::utility::Guid given_ = fluxcore::utility::Guid::CreateUnique();
};

TEST_F(DoIngestMediaTest, AnEmptyGroupDoesNothing) {
    IGD::DoIngestMedia(QL::IngestMediaGroup{}, true, true, false, given_);
    EXPECT_TRUE(tasks->Tasks().empty());
    EXPECT_TRUE(messages.Drain().empty());
}

class UnusableFirstPathTest : public DoIngestMediaTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(UnusableFirstPathTest, DoesNothingEvenIfLaterPathsExist) {
    QL::IngestMediaGroup group = CopyGroup();
    const std::string first = GetParam();
    group.paths = {first.empty() ? WString() : tree.Path(first), u"clip.MOV", tree.Path("in/other.MOV")};

    IGD::DoIngestMedia(group, true, true, false, given_);

    EXPECT_TRUE(tasks->Tasks().empty());
    EXPECT_TRUE(messages.Drain().empty());
    EXPECT_TRUE(ui->Boxes().empty());
}

INSTANTIATE_TEST_SUITE_P(Paths, UnusableFirstPathTest, ::testing::Values("", "in/missing.MOV", "in"));

TEST_F(DoIngestMediaTest, OnlyTheFirstFileIsTakenWithItsSidecars) {
    QL::IngestMediaGroup group = CopyGroup();
    group.paths.push_back(u"other.MOV");

    IGD::DoIngestMedia(group, true, true, false, given_);

    ASSERT_EQ(tasks->Count(TaskKind::Copy), 1u);
    const QL::IngestTask::CopySetting& setting = tasks->Tasks()[0].Copy();
    ASSERT_EQ(setting.units.size(), 1u);
    const std::vector<QL::CopyEntry> entries = Entries(setting);
    ASSERT_EQ(entries.size(), 3u);
    EXPECT_EQ(entries[0].source, tree.Path("in/clip.MOV"));
    EXPECT_EQ(entries[0].target, tree.Path("out/clip.MOV"));
    EXPECT_EQ(entries[1].target, tree.Path("out/clip.MOV.xmp"));
    EXPECT_EQ(entries[2].target, tree.Path("out/clip.xmp"));
    const QL::IngestTask::CopyUnit& unit = **setting.units.begin();
    const QL::IngestItem& imported = *unit.importItems.at(tree.Path("out/clip.MOV"));
    EXPECT_EQ(imported.name, u"clip.MOV");
    EXPECT_EQ(imported.format, u"com.veltrix.Kestrel.WinProviderDirectory");
    ASSERT_EQ(unit.clipGuids.size(), 1u);
    EXPECT_FALSE(unit.clipGuids.begin()->second.IsZero());
}

TEST_F(DoIngestMediaTest, SidecarsAreTakenOnlyWhenTheyExist) {
    std::filesystem::remove(tree.NativePath("in/clip.MOV.xmp"));

    IGD::DoIngestMedia(CopyGroup(), true, true, false, given_);

    const std::vector<QL::CopyEntry> entries = Entries(tasks->Tasks().at(0).Copy());
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_EQ(entries[1].source, tree.Path("in/clip.xmp"));
}

TEST_F(DoIngestMediaTest, WithTheGivenBatchTheCopyRunsUnderItAndIsStarted) {
    IGD::DoIngestMedia(CopyGroup(), true, /*primary=*/false, false, given_);

    ASSERT_EQ(tasks->Tasks().size(), 1u);
    EXPECT_EQ(tasks->Tasks()[0].batch, given_);
    EXPECT_FALSE(tasks->Tasks()[0].Copy().addToProject);
    EXPECT_EQ(tasks->Tasks()[0].Copy().verifyMode, QL::IngestTask::kVerifyNone);
    // Posted, not delivered: the host's queue runs it after the call returned.
    EXPECT_TRUE(messages.Delivered().empty());
    EXPECT_EQ(messages.Drain(), std::vector<Fnd::MessageID>{QL::StartIngestMessage::ID()});
    ASSERT_EQ(messages.Starts().size(), 1u);
    EXPECT_EQ(messages.Starts()[0].batch, given_);
    EXPECT_EQ(messages.Starts()[0].target, u"");
}

struct VerifyCase {
    const char16_t* verify;
    const char16_t* method;
    std::uint32_t expected;
};

void PrintTo(const VerifyCase& c, std::ostream* os) {
    *os << Fnd::ToUTF8(c.verify) << "/" << Fnd::ToUTF8(c.method);
}

class VerifyModeTest : public DoIngestMediaTest, public ::testing::WithParamInterface<VerifyCase> {};

TEST_P(VerifyModeTest, TheGroupsTextsChooseTheVerification) {
    QL::IngestMediaGroup group = CopyGroup();
    group.verify = GetParam().verify;
    group.verifyMethod = GetParam().method;

    IGD::DoIngestMedia(group, true, true, false, given_);

    ASSERT_EQ(tasks->Count(TaskKind::Copy), 1u);
    EXPECT_EQ(tasks->Tasks()[0].Copy().verifyMode, GetParam().expected);
}

INSTANTIATE_TEST_SUITE_P(Texts, VerifyModeTest,
                         ::testing::Values(VerifyCase{u"Verify", u"Other", 0}, VerifyCase{u"Verify", u"", 0},
                                           VerifyCase{u"Verify", u"FileSize", 1},
                                           VerifyCase{u"Verify", u"BitByBit", 2},
                                           VerifyCase{u"Verify", u"bitbybit", 0},
                                           VerifyCase{u"verify", u"FileSize", 0xFFFFFFFFu},
                                           VerifyCase{u"", u"BitByBit", 0xFFFFFFFFu}));

struct ImportOnlyCase {
    const char* label;
    const char16_t* transferMode;
    const char* destination; // relative to the tree; null for an empty path
};

// Named by its label: the padding of the record is nothing to print.
void PrintTo(const ImportOnlyCase& c, std::ostream* os) {
    *os << c.label;
}

class ImportOnlyGroupTest : public DoIngestMediaTest, public ::testing::WithParamInterface<ImportOnlyCase> {};

TEST_P(ImportOnlyGroupTest, ImportsUnderAFreshBatchWithoutABox) {
    tree.MakeFile("afile");
    QL::IngestMediaGroup group = CopyGroup();
    group.transferMode = GetParam().transferMode;
    group.destinationPath = GetParam().destination ? tree.Path(GetParam().destination) : WString();

    IGD::DoIngestMedia(group, true, true, false, given_);

    EXPECT_TRUE(ui->Boxes().empty());
    ASSERT_EQ(tasks->Tasks().size(), 1u);
    const RecordedTask& task = tasks->Tasks()[0];
    ASSERT_EQ(task.kind, TaskKind::Import);
    EXPECT_NE(task.batch, given_);
    EXPECT_FALSE(task.batch.IsZero());
    const QL::IngestItemMap& items = task.Import().importItems;
    ASSERT_EQ(items.size(), 1u);
    EXPECT_EQ(items.at(tree.Path("in/clip.MOV"))->extraPaths,
              (std::vector<WString>{tree.Path("in/clip.MOV.xmp"), tree.Path("in/clip.xmp")}));
    messages.Drain();
    ASSERT_EQ(messages.Starts().size(), 1u);
    EXPECT_EQ(messages.Starts()[0].batch, task.batch);
}

INSTANTIATE_TEST_SUITE_P(Groups, ImportOnlyGroupTest,
                         ::testing::Values(ImportOnlyCase{"LowerCaseCopy", u"copy", "out"},
                                           ImportOnlyCase{"OtherMode", u"Import", "out"},
                                           ImportOnlyCase{"MissingDestination", u"Copy", "nowhere"},
                                           ImportOnlyCase{"DestinationIsAFile", u"Copy", "afile"},
                                           ImportOnlyCase{"EmptyDestination", u"Copy", nullptr}),
                         [](const auto& info) { return std::string(info.param.label); });

TEST_F(DoIngestMediaTest, WithoutTheGivenBatchTheCheckedDestinationCopiesNothingButTheBatchStarts) {
    IGD::DoIngestMedia(CopyGroup(), false, true, false, given_);

    EXPECT_TRUE(ui->Boxes().empty());
    EXPECT_TRUE(tasks->Tasks().empty());
    messages.Drain();
    ASSERT_EQ(messages.Starts().size(), 1u);
    EXPECT_NE(messages.Starts()[0].batch, given_);
    EXPECT_FALSE(messages.Starts()[0].batch.IsZero());
}

TEST_F(DoIngestMediaTest, AFailedCheckEndsTheRequestWithoutAMessage) {
    if (::geteuid() == 0)
        GTEST_SKIP() << "the superuser may write anywhere";
    ASSERT_EQ(::chmod(tree.NativePath("out").c_str(), 0555), 0);
    ui->QueueBoxAnswer(0);

    IGD::DoIngestMedia(CopyGroup(), false, true, false, given_);

    ::chmod(tree.NativePath("out").c_str(), 0755);
    ASSERT_EQ(ui->Boxes().size(), 1u);
    EXPECT_EQ(ui->Boxes()[0].title, u"Destination path is not writable");
    EXPECT_TRUE(tasks->Tasks().empty());
    EXPECT_TRUE(messages.Drain().empty());
}

TEST_F(DoIngestMediaTest, GivingUpAnExistingFileQuestionEndsTheRequest) {
    tree.MakeFile("out/clip.MOV");
    ui->QueueExistingPathCancel();

    IGD::DoIngestMedia(CopyGroup(), true, true, false, given_);

    EXPECT_EQ(ui->ExistingPathQuestions().size(), 1u);
    EXPECT_TRUE(tasks->Tasks().empty());
    EXPECT_TRUE(messages.Drain().empty());
}

TEST_F(DoIngestMediaTest, AHostedApplicationKeepsBothUnasked) {
    HostApp::SetApplicationType(8);
    tree.MakeFile("out/clip.MOV");

    IGD::DoIngestMedia(CopyGroup(), true, true, false, given_);

    EXPECT_TRUE(ui->ExistingPathQuestions().empty());
    ASSERT_EQ(tasks->Count(TaskKind::Copy), 1u);
    for (const QL::CopyEntry& entry : Entries(tasks->Tasks()[0].Copy()))
        EXPECT_EQ(entry.action, 2);
}

class DoIngestOneMediaTest : public PlanTest {
protected:
    DoIngestOneMediaTest() {
        tree.MakeFile("in/clip.MOV");
        tree.MakeFile("in/clip.xmp");
    }
};

TEST_F(DoIngestOneMediaTest, ADirectFileIsOneSingleFileClipWithItsSidecars) {
    auto session = NewSession();
    AddDestination(*session, "out", true);

    const fluxcore::utility::Guid batch = IGD::DoIngestOneMedia(tree.Path("in/clip.MOV"), session, {}, true);

    EXPECT_FALSE(batch.IsZero());
    ASSERT_EQ(session->GetSelectedItems().size(), 1u);
    const auto* clip = dynamic_cast<const IGD::SelectedClipItem*>(session->GetSelectedItems()[0].get());
    ASSERT_NE(clip, nullptr);
    EXPECT_EQ(clip->GetItemPath(), u"clip.MOV");
    EXPECT_EQ(clip->ExtraPaths(), std::vector<WString>{u"clip.xmp"});
    EXPECT_TRUE(clip->IsSingleFileType());
    EXPECT_EQ(clip->GetClipName(), u"clip.MOV");
    EXPECT_EQ(clip->GetItemFormat(), u"com.veltrix.Kestrel.WinProviderDirectory");
    EXPECT_FALSE(clip->GetClipGuid().IsZero());
    EXPECT_EQ(session->GetSourceRoot(), tree.Path("in") + u"/");

    ASSERT_EQ(tasks->Tasks().size(), 1u);
    EXPECT_EQ(tasks->Tasks()[0].batch, batch);
    const std::vector<QL::CopyEntry> entries = Entries(tasks->Tasks()[0].Copy());
    ASSERT_EQ(entries.size(), 2u);
    EXPECT_EQ(entries[0].target, tree.Path("out/clip.MOV"));
    EXPECT_EQ(entries[1].target, tree.Path("out/clip.xmp"));
    messages.Drain();
    ASSERT_EQ(messages.Starts().size(), 1u);
    EXPECT_EQ(messages.Starts()[0].batch, batch);
}

TEST_F(DoIngestOneMediaTest, ASecondCallWithTheSameSessionSubmitsTheSameItemsUnderANewBatch) {
    auto session = NewSession();
    AddDestination(*session, "out", true);
    const fluxcore::utility::Guid first = IGD::DoIngestOneMedia(tree.Path("in/clip.MOV"), session, {}, true);
    const fluxcore::utility::Guid clipGuid = session->GetSelectedItems()[0]->GetClipGuid();

    // Another path changes nothing: the session's items are what is ingested.
    const fluxcore::utility::Guid second = IGD::DoIngestOneMedia(tree.Path("in/clip.xmp"), session, {}, true);

    EXPECT_NE(first, second);
    EXPECT_EQ(session->GetSelectedItems().size(), 1u);
    EXPECT_EQ(session->GetSelectedItems()[0]->GetClipGuid(), clipGuid);
    ASSERT_EQ(tasks->Tasks().size(), 2u);
    EXPECT_EQ(tasks->Tasks()[1].batch, second);
    EXPECT_EQ(Entries(tasks->Tasks()[0].Copy())[0].target, Entries(tasks->Tasks()[1].Copy())[0].target);
    messages.Drain();
    ASSERT_EQ(messages.Starts().size(), 2u);
    EXPECT_EQ(messages.Starts()[1].batch, second);
}

TEST_F(DoIngestOneMediaTest, WithoutDestinationsTheFileIsImportedWhereItLies) {
    auto session = NewSession();
    const fluxcore::utility::Guid batch = IGD::DoIngestOneMedia(tree.Path("in/clip.MOV"), session, {}, false);

    ASSERT_EQ(tasks->Count(TaskKind::Import), 1u);
    EXPECT_EQ(tasks->Tasks()[0].batch, batch);
    EXPECT_EQ(tasks->Tasks()[0].Import().importItems.count(tree.Path("in/clip.MOV")), 1u);
}

class UnusableOnePathTest : public DoIngestOneMediaTest, public ::testing::WithParamInterface<const char*> {};

TEST_P(UnusableOnePathTest, AnswersABatchThatNothingUses) {
    auto session = NewSession();
    AddDestination(*session, "out", true);
    const std::string path = GetParam();

    const fluxcore::utility::Guid batch =
        IGD::DoIngestOneMedia(path.empty() ? WString() : tree.Path(path), session, {}, true);

    EXPECT_FALSE(batch.IsZero());
    EXPECT_TRUE(session->GetSelectedItems().empty());
    EXPECT_TRUE(tasks->Tasks().empty());
    EXPECT_TRUE(messages.Drain().empty());
}

INSTANTIATE_TEST_SUITE_P(Paths, UnusableOnePathTest, ::testing::Values("", "in/missing.MOV", "in"));

TEST_F(DoIngestOneMediaTest, GivingUpKeepsTheItemButCopiesNothing) {
    tree.MakeFile("out/clip.MOV");
    auto session = NewSession();
    AddDestination(*session, "out", true);
    ui->QueueExistingPathCancel();

    IGD::DoIngestOneMedia(tree.Path("in/clip.MOV"), session, {}, true);

    EXPECT_EQ(session->GetSelectedItems().size(), 1u);
    EXPECT_TRUE(tasks->Tasks().empty());
}

TEST_F(PlanTest, PauseResumeAndStopPostTheirMessagesInOrder) {
    IGD::PauseIngest();
    IGD::ResumeIngest();
    IGD::StopIngest();
    EXPECT_TRUE(messages.Delivered().empty());

    EXPECT_EQ(messages.Drain(),
              (std::vector<Fnd::MessageID>{QL::PauseIngestMessage::ID(), QL::ResumeIngestMessage::ID(),
                                           QL::CancelIngestMessage::ID()}));
}

} // namespace
} // namespace igd::test
