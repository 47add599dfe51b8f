#include <gtest/gtest.h>

#include <vector>

#include "HostApp/ApplicationType.h"
#include "IGD/IngestApi.h"
#include "PlanTestSupport.h"
#include "QL/CopySetting.h"
#include "pipeline/CopyDecisions.h"

namespace igd::test {
namespace {

using Fnd::WString;

class CopyDecisionsTest : public PlanTest {
protected:
    const IGD::CopyActionMap& DecisionsFor(IGD::IIngestDialogData& session,
                                           const IGD::IngestDestinationRef& destination) {
        return session.GetCopyDecisions()->at(destination);
    }
};

TEST_F(CopyDecisionsTest, NothingInTheWayAsksNothing) {
    tree.MakeFile("src/A001.MOV");
    auto session = NewSessionOverSource();
    AddClip(*session, "A001.MOV", {"A001.XMP"});
    auto primary = AddDestination(*session, "p", true);

    ASSERT_TRUE(Decide(*session));
    EXPECT_TRUE(ui->ExistingPathQuestions().empty());
    EXPECT_EQ(DecisionsFor(*session, primary), (IGD::CopyActionMap{{u"A001.MOV", 0}, {u"A001.XMP", 0}}));
}

TEST_F(CopyDecisionsTest, AnExistingClipIsAskedOnceAndItsFilesFollowTheAnswer) {
    tree.MakeFile("p/A001.MOV");
    tree.MakeFile("p/A001.XMP");
    auto session = NewSessionOverSource();
    AddClip(*session, "A001.MOV", {"A001.XMP"});
    auto primary = AddDestination(*session, "p", true);
    ui->QueueExistingPathAnswer(QL::kCopyActionReplace);

    ASSERT_TRUE(Decide(*session));
    ASSERT_EQ(ui->ExistingPathQuestions().size(), 1u);
    const Fnd::ExistingPathQuestion& question = ui->ExistingPathQuestions()[0];
    EXPECT_EQ(question.source, tree.Path("src/A001.MOV"));
    EXPECT_EQ(question.target, tree.Path("p/A001.MOV"));
    EXPECT_FALSE(question.isDirectory);
    EXPECT_FALSE(question.onlyInCopyList);
    EXPECT_EQ(DecisionsFor(*session, primary), (IGD::CopyActionMap{{u"A001.MOV", 3}, {u"A001.XMP", 3}}));
}

TEST_F(CopyDecisionsTest, AClipWithNothingInTheWayStillHasItsExistingFilesAsked) {
    tree.MakeFile("p/A001.XMP");
    auto session = NewSessionOverSource();
    AddClip(*session, "A001.MOV", {"A001.XMP"});
    auto primary = AddDestination(*session, "p", true);
    ui->QueueExistingPathAnswer(QL::kCopyActionKeepBoth);

    ASSERT_TRUE(Decide(*session));
    ASSERT_EQ(ui->ExistingPathQuestions().size(), 1u);
    EXPECT_EQ(ui->ExistingPathQuestions()[0].source, tree.Path("src/A001.XMP"));
    EXPECT_EQ(ui->ExistingPathQuestions()[0].target, tree.Path("p/A001.XMP"));
    EXPECT_EQ(DecisionsFor(*session, primary), (IGD::CopyActionMap{{u"A001.MOV", 0}, {u"A001.XMP", 2}}));
}

TEST_F(CopyDecisionsTest, ARenamedFileIsJudgedByItsNewName) {
    tree.MakeFile("p/A001.MOV"); // the old name in the way does not matter
    tree.MakeFile("p/Shot_01.MOV");
    auto session = NewSessionOverSource();
    AddClip(*session, "A001.MOV", {}, "Shot_01");
    auto primary = AddDestination(*session, "p", true, /*applyRename=*/true);
    ui->QueueExistingPathAnswer(QL::kCopyActionSkip);

    ASSERT_TRUE(Decide(*session));
    ASSERT_EQ(ui->ExistingPathQuestions().size(), 1u);
    EXPECT_EQ(ui->ExistingPathQuestions()[0].target, tree.Path("p/Shot_01.MOV"));
    EXPECT_EQ(DecisionsFor(*session, primary).at(u"A001.MOV"), 1);
}

TEST_F(CopyDecisionsTest, AFolderSkippedKeepsAllItsContentUnasked) {
    tree.MakeFile("p/Card/b.mxf");
    tree.MakeFile("p/Card/CLIP/a.mxf");
    auto session = NewSessionOverSource();
    AddFolder(*session, "Card", {"Card/CLIP", "Card/CLIP/a.mxf", "Card/b.mxf"});
    auto primary = AddDestination(*session, "p", true);
    ui->QueueExistingPathAnswer(QL::kCopyActionSkip);

    ASSERT_TRUE(Decide(*session));
    ASSERT_EQ(ui->ExistingPathQuestions().size(), 1u);
    EXPECT_TRUE(ui->ExistingPathQuestions()[0].isDirectory);
    EXPECT_EQ(
        DecisionsFor(*session, primary),
        (IGD::CopyActionMap{{u"Card", 1}, {u"Card/CLIP", 1}, {u"Card/CLIP/a.mxf", 1}, {u"Card/b.mxf", 1}}));
}

class FolderAnswerTest : public CopyDecisionsTest, public ::testing::WithParamInterface<int> {};

TEST_P(FolderAnswerTest, AnyOtherAnswerForAFolderLooksAtEachFileByItself) {
    tree.MakeFile("p/Card/b.mxf");
    tree.MakeFolder("p/Card/CLIP"); // exists, but its file does not
    auto session = NewSessionOverSource();
    AddFolder(*session, "Card", {"Card/CLIP", "Card/CLIP/a.mxf", "Card/b.mxf"});
    auto primary = AddDestination(*session, "p", true);
    ui->QueueExistingPathAnswer(GetParam());
    ui->QueueExistingPathAnswer(QL::kCopyActionSkip);     // Card/CLIP
    ui->QueueExistingPathAnswer(QL::kCopyActionKeepBoth); // Card/b.mxf

    ASSERT_TRUE(Decide(*session));
    ASSERT_EQ(ui->ExistingPathQuestions().size(), 3u);
    EXPECT_EQ(ui->ExistingPathQuestions()[1].target, tree.Path("p/Card/CLIP"));
    EXPECT_TRUE(ui->ExistingPathQuestions()[1].isDirectory);
    EXPECT_EQ(ui->ExistingPathQuestions()[2].target, tree.Path("p/Card/b.mxf"));
    EXPECT_FALSE(ui->ExistingPathQuestions()[2].isDirectory);
    EXPECT_EQ(DecisionsFor(*session, primary),
              (IGD::CopyActionMap{
                  {u"Card", GetParam()}, {u"Card/CLIP", 1}, {u"Card/CLIP/a.mxf", 0}, {u"Card/b.mxf", 2}}));
}

INSTANTIATE_TEST_SUITE_P(KeepBothOrReplace, FolderAnswerTest, ::testing::Values(2, 3));

TEST_F(CopyDecisionsTest, AnAnswerForAllCarriesOverToTheNextDestination) {
    for (const char* path : {"p/A001.MOV", "p/A002.MOV", "b/A001.MOV", "b/A002.MOV"})
        tree.MakeFile(path);
    auto session = NewSessionOverSource();
    AddClip(*session, "A001.MOV");
    AddClip(*session, "A002.MOV");
    auto primary = AddDestination(*session, "p", true);
    auto backup = AddDestination(*session, "b", false);
    ui->QueueExistingPathAnswer(QL::kCopyActionReplace, /*applyToAll=*/true);

    ASSERT_TRUE(Decide(*session));
    EXPECT_EQ(ui->ExistingPathQuestions().size(), 1u);
    const IGD::CopyActionMap all{{u"A001.MOV", 3}, {u"A002.MOV", 3}};
    EXPECT_EQ(DecisionsFor(*session, primary), all);
    EXPECT_EQ(DecisionsFor(*session, backup), all);
}

TEST_F(CopyDecisionsTest, WithoutAnAnswerForAllEachConflictIsAsked) {
    tree.MakeFile("p/A001.MOV");
    tree.MakeFile("b/A001.MOV");
    auto session = NewSessionOverSource();
    AddClip(*session, "A001.MOV");
    auto primary = AddDestination(*session, "p", true);
    auto backup = AddDestination(*session, "b", false);
    ui->QueueExistingPathAnswer(QL::kCopyActionSkip);
    ui->QueueExistingPathAnswer(QL::kCopyActionKeepBoth);

    ASSERT_TRUE(Decide(*session));
    EXPECT_EQ(DecisionsFor(*session, primary).at(u"A001.MOV"), 1);
    EXPECT_EQ(DecisionsFor(*session, backup).at(u"A001.MOV"), 2);
}

TEST_F(CopyDecisionsTest, GivingUpAnswersFalseAndAsksNothingMore) {
    tree.MakeFile("p/A001.MOV");
    tree.MakeFile("p/A002.MOV");
    auto session = NewSessionOverSource();
    AddClip(*session, "A001.MOV");
    AddClip(*session, "A002.MOV");
    AddDestination(*session, "p", true);
    ui->QueueExistingPathCancel();

    EXPECT_FALSE(Decide(*session));
    EXPECT_EQ(ui->ExistingPathQuestions().size(), 1u);
}

TEST_F(CopyDecisionsTest, ATargetThatAWaitingTaskWillWriteIsAskedAbout) {
    auto session = NewSessionOverSource();
    AddClip(*session, "A001.MOV");
    auto primary = AddDestination(*session, "p", true);
    tasks->AddPathInCopyList(tree.Path("p/A001.MOV"));
    ui->QueueExistingPathAnswer(QL::kCopyActionKeepBoth);

    ASSERT_TRUE(Decide(*session));
    ASSERT_EQ(ui->ExistingPathQuestions().size(), 1u);
    EXPECT_TRUE(ui->ExistingPathQuestions()[0].onlyInCopyList);
    EXPECT_EQ(DecisionsFor(*session, primary).at(u"A001.MOV"), 2);
}

TEST_F(CopyDecisionsTest, DisabledAndTranscodingDestinationsGetNoDecisions) {
    tree.MakeFile("off/A001.MOV");
    tree.MakeFile("tc/A001.MOV");
    auto session = NewSessionOverSource();
    AddClip(*session, "A001.MOV");
    auto disabled = AddDestination(*session, "off", true);
    disabled->SetEnabled(false);
    auto transcoding = AddDestination(*session, "tc", false);
    Transcode(*transcoding);
    auto transcodeOff = AddDestination(*session, "copy", false);
    transcodeOff->SetTranscodeSetting(std::make_shared<QL::IngestTask::TranscodeSetting>());

    ASSERT_TRUE(Decide(*session));
    EXPECT_TRUE(ui->ExistingPathQuestions().empty());
    const IGD::CopyDecisionMap& decisions = *session->GetCopyDecisions();
    EXPECT_EQ(decisions.count(disabled), 0u);
    EXPECT_EQ(decisions.count(transcoding), 0u);
    EXPECT_EQ(decisions.count(transcodeOff), 1u);
}

// Kinds 5 and 8: the host gives the destinations and nobody is asked.
class HostedCopyDecisionsTest : public CopyDecisionsTest, public ::testing::WithParamInterface<int> {
protected:
    HostedCopyDecisionsTest() { HostApp::SetApplicationType(GetParam()); }
};

TEST_P(HostedCopyDecisionsTest, KeepsBothUnaskedUnderTheHostsName) {
    tree.MakeFile("p/A001.MOV");
    auto session = NewSessionOverSource();
    auto clip = AddClip(*session, "A001.MOV", {"A001.XMP"});
    auto primary = AddDestination(*session, "p", true);
    struct Call {
        WString target, extension, directory, text;
        std::size_t names, moreNames;
    };
    std::vector<Call> calls;
    IGD::SetGenerateAutomaticFileNameCallback(
        [&](const WString& target, const WString& extension, const std::vector<WString>& names,
            const WString& directory, const WString& text, const std::vector<WString>& moreNames) {
            calls.push_back({target, extension, directory, text, names.size(), moreNames.size()});
            return tree.Path("p/A001 (1).MOV");
        });

    ASSERT_TRUE(Decide(*session));
    EXPECT_TRUE(ui->ExistingPathQuestions().empty());
    EXPECT_EQ(DecisionsFor(*session, primary), (IGD::CopyActionMap{{u"A001.MOV", 2}, {u"A001.XMP", 2}}));
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].target, tree.Path("p/A001.MOV"));
    EXPECT_EQ(calls[0].extension, u".MOV");
    EXPECT_EQ(calls[0].directory, tree.Path("p") + u"/");
    EXPECT_EQ(calls[0].text, u"");
    EXPECT_EQ(calls[0].names, 0u);
    EXPECT_EQ(calls[0].moreNames, 0u);
    EXPECT_EQ(clip->GetOutputName(), u"A001 (1)");
    EXPECT_TRUE(primary->IsApplyRename());
}

TEST_P(HostedCopyDecisionsTest, TheHostsSameNameChangesNothing) {
    auto session = NewSessionOverSource();
    auto clip = AddClip(*session, "A001.MOV");
    auto primary = AddDestination(*session, "p", true);
    IGD::SetGenerateAutomaticFileNameCallback([](const WString& target, const WString&,
                                                 const std::vector<WString>&, const WString&, const WString&,
                                                 const std::vector<WString>&) { return target; });

    ASSERT_TRUE(Decide(*session));
    EXPECT_EQ(DecisionsFor(*session, primary).at(u"A001.MOV"), 2);
    EXPECT_FALSE(clip->HasOutputName());
    EXPECT_FALSE(primary->IsApplyRename());
}

TEST_P(HostedCopyDecisionsTest, OnlyPlainFolderItemsAreOfferedToTheHost) {
    auto session = NewSessionOverSource();
    auto clip = AddClip(*session, "A001.MXF");
    clip->SetItemFormat(u"com.veltrix.Kestrel.WinProviderCard");
    AddDestination(*session, "p", true);
    int calls = 0;
    IGD::SetGenerateAutomaticFileNameCallback([&](const WString&, const WString&, const std::vector<WString>&,
                                                  const WString&, const WString&,
                                                  const std::vector<WString>&) {
        ++calls;
        return WString(u"/elsewhere/X.MXF");
    });

    ASSERT_TRUE(Decide(*session));
    EXPECT_EQ(calls, 0);
    EXPECT_FALSE(clip->HasOutputName());
}

TEST_P(HostedCopyDecisionsTest, ADestinationWithATranscodeSettingIsSkippedEvenWhenItIsOff) {
    auto session = NewSessionOverSource();
    AddClip(*session, "A001.MOV");
    auto destination = AddDestination(*session, "p", true);
    destination->SetTranscodeSetting(std::make_shared<QL::IngestTask::TranscodeSetting>());

    ASSERT_TRUE(Decide(*session));
    EXPECT_EQ(session->GetCopyDecisions()->count(destination), 0u);
}

INSTANTIATE_TEST_SUITE_P(Kinds, HostedCopyDecisionsTest, ::testing::Values(5, 8));

} // namespace
} // namespace igd::test
