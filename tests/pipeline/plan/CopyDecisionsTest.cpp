// What the user is asked before a copy, and what each answer decides for the paths of an item.
#include <gtest/gtest.h>

#include <ostream>

#include "HostApp/ApplicationType.h"
#include "IGD/IngestApi.h"
#include "tests/pipeline/PlanTestSupport.h"
#include "QL/CopySetting.h"
#include "pipeline/plan/CopyDecisions.h"

namespace igd::test {
namespace {

using Fnd::WString;
using Map = IGD::CopyActionMap;
constexpr int kSkip = QL::kCopyActionSkip;
constexpr int kKeepBoth = QL::kCopyActionKeepBoth;
constexpr int kReplace = QL::kCopyActionReplace;

class CopyDecisionsTest : public PlanTest {
protected:
    const Map& DecisionsFor(IGD::IIngestDialogData& session, const IGD::IngestDestinationRef& destination) {
        return session.GetCopyDecisions()->at(destination);
    }

    // Each question as "source > target", marked when it is about a folder or about a path that
    // only a waiting task will write.
    Strings Asked() const {
        Strings asked;
        for (const Fnd::ExistingPathQuestion& question : ui->ExistingPathQuestions())
            asked.push_back(Rel(question.source) + " > " + Rel(question.target) +
                            (question.isDirectory ? " (folder)" : "") +
                            (question.onlyInCopyList ? " (waiting)" : ""));
        return asked;
    }
};

// The clip A001.MOV with its sidecar, under a new name if one is given, or the folder Card with
// its content, against what already lies in the destination folder p.
struct DecisionCase {
    const char* name;
    const char* item;
    Strings existing; // below p; a trailing slash makes a folder
    std::vector<int> answers;
    Strings asked;
    Map expected;
};

void PrintTo(const DecisionCase& c, std::ostream* os) {
    *os << c.name;
}

class DecisionTableTest : public CopyDecisionsTest, public ::testing::WithParamInterface<DecisionCase> {};

TEST_P(DecisionTableTest, AsksAboutWhatIsInTheWayAndRecordsTheAnswers) {
    const DecisionCase& c = GetParam();
    for (const std::string& path : c.existing) {
        if (path.back() == '/')
            tree.MakeFolder("p/" + path);
        else
            tree.MakeFile("p/" + path);
    }
    auto session = SessionWithClips();
    if (std::string(c.item) == "Card")
        AddFolder(*session, "Card", {"Card/CLIP", "Card/CLIP/a.mxf", "Card/b.mxf"});
    else
        AddClip(*session, "A001.MOV", {"A001.XMP"}, c.item);
    auto primary = AddDestination(*session, "p", true);
    for (int answer : c.answers)
        ui->QueueExistingPathAnswer(answer);

    ASSERT_TRUE(Decide(*session));
    EXPECT_EQ(Asked(), c.asked);
    EXPECT_EQ(DecisionsFor(*session, primary), c.expected);
}

const char* const kCard = "src/Card > p/Card (folder)";

// clang-format off
INSTANTIATE_TEST_SUITE_P(Cases, DecisionTableTest, ::testing::Values(
    DecisionCase{"AClipInTheWayIsAskedOnceAndItsFilesFollow", "", {"A001.MOV", "A001.XMP"}, {kReplace},
                 {"src/A001.MOV > p/A001.MOV"}, {{u"A001.MOV", 3}, {u"A001.XMP", 3}}},
    DecisionCase{"AFreeClipStillHasItsFilesInTheWayAsked", "", {"A001.XMP"}, {kKeepBoth},
                 {"src/A001.XMP > p/A001.XMP"}, {{u"A001.MOV", 0}, {u"A001.XMP", 2}}},
    DecisionCase{"ARenamedClipIsJudgedByItsNewName", "Shot_01", {"A001.MOV", "Shot_01.MOV"}, {kSkip},
                 {"src/A001.MOV > p/Shot_01.MOV"}, {{u"A001.MOV", 1}, {u"A001.XMP", 1}}},
    DecisionCase{"ASkippedFolderSkipsAllItsContentUnasked", "Card", {"Card/b.mxf", "Card/CLIP/a.mxf"}, {kSkip},
                 {kCard}, {{u"Card", 1}, {u"Card/CLIP", 1}, {u"Card/CLIP/a.mxf", 1}, {u"Card/b.mxf", 1}}},
    DecisionCase{"AFolderKeptBothHasEachOfItsPathsAsked", "Card", {"Card/b.mxf", "Card/CLIP/"},
                 {kKeepBoth, kSkip, kKeepBoth},
                 {kCard, "src/Card/CLIP > p/Card/CLIP (folder)", "src/Card/b.mxf > p/Card/b.mxf"},
                 {{u"Card", 2}, {u"Card/CLIP", 1}, {u"Card/CLIP/a.mxf", 0}, {u"Card/b.mxf", 2}}}),
    [](const auto& info) { return std::string(info.param.name); });
// clang-format on

class ApplyToAllTest : public CopyDecisionsTest, public ::testing::WithParamInterface<bool> {};

// Between the two, a disabled and a transcoding destination with the file in the way are never
// asked about. The backup's target is not on disk yet, only in a waiting task: that is in the way
// too, and its transcode setting, being off, makes it no less a copy.
TEST_P(ApplyToAllTest, AnAnswerForAllCarriesOverToTheNextDestination) {
    const bool forAll = GetParam();
    tree.MakeFile("p/A001.MOV");
    tree.MakeFile("off/A001.MOV");
    tree.MakeFile("tc/A001.MOV");
    tasks->AddPathInCopyList(tree.Path("b/A001.MOV"));
    auto session = SessionWithClips();
    AddClip(*session, "A001.MOV");
    auto primary = AddDestination(*session, "p", true);
    AddDestination(*session, "off", false)->SetEnabled(false);
    Transcode(*AddDestination(*session, "tc", false));
    auto backup = AddDestination(*session, "b", false);
    backup->SetTranscodeSetting(std::make_shared<QL::IngestTask::TranscodeSetting>());
    ui->QueueExistingPathAnswer(kReplace, forAll);
    if (!forAll)
        ui->QueueExistingPathAnswer(kKeepBoth);

    ASSERT_TRUE(Decide(*session));
    Strings asked{"src/A001.MOV > p/A001.MOV"};
    if (!forAll)
        asked.push_back("src/A001.MOV > b/A001.MOV (waiting)");
    EXPECT_EQ(Asked(), asked);
    EXPECT_EQ(session->GetCopyDecisions()->size(), 2u);
    EXPECT_EQ(DecisionsFor(*session, primary), (Map{{u"A001.MOV", kReplace}}));
    EXPECT_EQ(DecisionsFor(*session, backup), (Map{{u"A001.MOV", forAll ? kReplace : kKeepBoth}}));
}

INSTANTIATE_TEST_SUITE_P(ForAllOrNot, ApplyToAllTest, ::testing::Bool());

// Kinds 5 and 8: the host gives the destinations and nobody is asked.
class HostedCopyDecisionsTest : public CopyDecisionsTest, public ::testing::WithParamInterface<int> {
protected:
    HostedCopyDecisionsTest() { HostApp::SetApplicationType(GetParam()); }
};

TEST_P(HostedCopyDecisionsTest, KeepsBothUnaskedUnderTheNameTheHostGivesPlainFolderItems) {
    tree.MakeFile("p/A001.MOV");
    auto session = SessionWithClips();
    auto clip = AddClip(*session, "A001.MOV", {"A001.XMP"});
    auto same = AddClip(*session, "A002.MOV");
    auto card = AddClip(*session, "C0001.MXF");
    card->SetItemFormat(u"com.veltrix.Kestrel.WinProviderCard");
    auto primary = AddDestination(*session, "p", true);
    Strings offered;
    IGD::SetGenerateAutomaticFileNameCallback([&](const WString& target, const WString& extension,
                                                  const std::vector<WString>&, const WString& directory,
                                                  const WString&, const std::vector<WString>&) {
        offered.push_back(Rel(target) + " " + Fnd::ToUTF8(extension) + " in " + Rel(directory));
        return Rel(target) == "p/A001.MOV" ? tree.Path("p/A001 (1).MOV") : target;
    });

    ASSERT_TRUE(Decide(*session));
    EXPECT_TRUE(ui->ExistingPathQuestions().empty());
    EXPECT_EQ(offered, (Strings{"p/A001.MOV .MOV in p/", "p/A002.MOV .MOV in p/"}));
    EXPECT_EQ(DecisionsFor(*session, primary),
              (Map{{u"A001.MOV", 2}, {u"A001.XMP", 2}, {u"A002.MOV", 2}, {u"C0001.MXF", 2}}));
    EXPECT_EQ(clip->GetOutputName(), u"A001 (1)");
    EXPECT_FALSE(same->HasOutputName());
    EXPECT_FALSE(card->HasOutputName());
    EXPECT_TRUE(primary->IsApplyRename());
}

INSTANTIATE_TEST_SUITE_P(Kinds, HostedCopyDecisionsTest, ::testing::Values(5, 8));

} // namespace
} // namespace igd::test
