// The checks before a transfer: which one speaks, with which words, and where the chain stops.
#include <gtest/gtest.h>

#include <memory>

#include "AppFrame/DocumentManager.h"
#include "Fnd/NullInterfaceException.h"
#include "PlanTestSupport.h"
#include "pipeline/PreflightChain.h"

namespace igd::test {
namespace {

using Fnd::WString;

class PreflightChainTest : public PlanTest {
protected:
    PreflightChainTest() {
        tree.MakeFile("src/A001.MOV");
        session_ = NewSessionOverSource();
        AddClip(*session_, "A001.MOV");
    }

    // A copy destination as the chain expects it: with a transcode setting that is off.
    IGD::IngestDestinationRef AddCopyDestination(std::string_view folder) {
        auto destination = AddDestination(*session_, folder, session_->GetDestinations().empty());
        destination->SetTranscodeSetting(std::make_shared<QL::IngestTask::TranscodeSetting>());
        return destination;
    }

    bool Run() {
        return IGD::RunPreflightChain(session_->GetSourceRoot(), session_->GetSelectedItems(),
                                      session_->GetDestinations());
    }

    void ExpectOneBox(const WString& title, const WString& text) {
        ASSERT_EQ(ui->Boxes().size(), 1u);
        EXPECT_EQ(ui->Boxes()[0].title, title);
        EXPECT_EQ(ui->Boxes()[0].text, text);
        EXPECT_EQ(ui->Boxes()[0].buttons.size(), 1u);
        EXPECT_EQ(ui->Boxes()[0].icon, Fnd::BoxIcon::Error);
    }

    IGD::IngestDialogDataRef session_;
};

TEST_F(PreflightChainTest, ASoundRequestPassesSilently) {
    AddCopyDestination("p");
    AddCopyDestination("b");
    EXPECT_TRUE(Run());
    EXPECT_TRUE(ui->Boxes().empty());
}

TEST_F(PreflightChainTest, AMissingSourceIsToldFirstByItsNormalisedPath) {
    AddClip(*session_, "day1/../gone.MOV");
    auto destination = AddCopyDestination("p");
    destination->SetDestinationPath(tree.Path("nowhere")); // would fail later in the chain
    ui->QueueBoxAnswer(0);

    EXPECT_FALSE(Run());
    ExpectOneBox(u"Selected path does not exist",
                 u"The selected path " + tree.Path("src/gone.MOV") +
                     u" does not exist. Please select the source clip again.");
}

TEST_F(PreflightChainTest, AnEmptySourcePathSaysSo) {
    session_ = NewSession();
    AddClip(*session_, "");
    ui->QueueBoxAnswer(0);

    EXPECT_FALSE(Run());
    ExpectOneBox(u"Selected path does not exist",
                 u"The source clip path is empty. It might be because the selected file path is too long.");
}

TEST_F(PreflightChainTest, AMissingDestinationIsTold) {
    AddCopyDestination("p");
    AddCopyDestination("b")->SetDestinationPath(tree.Path("gone//deeper/"));
    ui->QueueBoxAnswer(0);

    EXPECT_FALSE(Run());
    ExpectOneBox(u"Destination path does not exist", u"The specified destination path " +
                                                         tree.Path("gone/deeper") +
                                                         u" does not exist. Please specify a new one.");
}

TEST_F(PreflightChainTest, AnEmptyDestinationIsNotSet) {
    AddCopyDestination("p")->SetDestinationPath({});
    ui->QueueBoxAnswer(0);

    EXPECT_FALSE(Run());
    ExpectOneBox(u"Destination path is not set", u"Please specify the destination path.");
}

TEST_F(PreflightChainTest, TheBaseFolderMustExistEvenWhenOnlyTheSubFolderIsNew) {
    AddCopyDestination("p")->SetSubFolder(u"new/day1");
    EXPECT_TRUE(Run());
}

TEST_F(PreflightChainTest, TwoCopiesToOneFolderAreDuplicates) {
    AddCopyDestination("p")->SetSubFolder(u"day1");
    AddCopyDestination("q");
    AddCopyDestination("p")->SetSubFolder(u"day1/");
    ui->QueueBoxAnswer(0);

    EXPECT_FALSE(Run());
    ASSERT_EQ(ui->Boxes().size(), 1u);
    EXPECT_EQ(ui->Boxes()[0].title, u"Duplicate destination paths");
    EXPECT_EQ(ui->Boxes()[0].text, u"Multiple destination paths point are the same: '" + tree.Path("p/day1") +
                                       u"'. Please change or remove one of them.");
}

TEST_F(PreflightChainTest, TranscodesMayShareAFolder) {
    AddCopyDestination("p");
    AddCopyDestination("p")->GetTranscodeSetting()->enabled = true;
    EXPECT_TRUE(Run());
}

TEST_F(PreflightChainTest, AProjectOnAServerSkipsTheDuplicateCheck) {
    AppFrame::DocumentManager::SetInstance(std::make_shared<AppFrame::FixedDocumentManager>(true));
    AddCopyDestination("p");
    AddCopyDestination("p");
    EXPECT_TRUE(Run());
}

TEST_F(PreflightChainTest, ALocalProjectKeepsTheDuplicateCheck) {
    AppFrame::DocumentManager::SetInstance(std::make_shared<AppFrame::FixedDocumentManager>(false));
    AddCopyDestination("p");
    AddCopyDestination("p");
    ui->QueueBoxAnswer(0);
    EXPECT_FALSE(Run());
    EXPECT_EQ(ui->Boxes().size(), 1u);
}

TEST_F(PreflightChainTest, ADestinationWithoutATranscodeSettingIsAProgrammingFault) {
    AddDestination(*session_, "p", true);
    EXPECT_THROW(Run(), Fnd::NullInterfaceException);
    EXPECT_TRUE(ui->Boxes().empty());
}

} // namespace
} // namespace igd::test
