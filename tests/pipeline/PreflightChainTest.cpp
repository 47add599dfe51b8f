// The checks before a transfer: which one speaks, with which words, and where the chain stops.
#include <gtest/gtest.h>

#include "AppFrame/DocumentManager.h"
#include "Fnd/NullInterfaceException.h"
#include "PlanTestSupport.h"
#include "pipeline/PreflightChain.h"

namespace igd::test {
namespace {

using Fnd::WString;

class PreflightChainTest : public PlanTest {
protected:
    PreflightChainTest() { session_ = SessionWithClips({"A001.MOV"}); }

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

    // The one box the chain showed, as "title: text"; it must be an error with one button.
    std::string OnlyBox() const {
        if (ui->Boxes().size() != 1u)
            return std::to_string(ui->Boxes().size()) + " boxes";
        const Fnd::MessageBoxRequest& box = ui->Boxes()[0];
        EXPECT_EQ(box.buttons.size(), 1u);
        EXPECT_EQ(box.icon, Fnd::BoxIcon::Error);
        return Fnd::ToUTF8(box.title + u": " + box.text);
    }

    IGD::IngestDialogDataRef session_;
};

TEST_F(PreflightChainTest, ASoundRequestPassesSilently) {
    // The base folder must exist; a sub-folder below it may be new.
    AddCopyDestination("p")->SetSubFolder(u"new/day1");
    AddCopyDestination("b");
    // Transcodes write new names, so they may share a folder with a copy.
    AddCopyDestination("b")->GetTranscodeSetting()->enabled = true;
    EXPECT_TRUE(Run());
    EXPECT_TRUE(ui->Boxes().empty());
}

TEST_F(PreflightChainTest, AMissingSourceIsToldFirstByItsNormalisedPath) {
    AddClip(*session_, "day1/../gone.MOV");
    AddCopyDestination("p")->SetDestinationPath(tree.Path("nowhere")); // would fail later in the chain
    ui->QueueBoxAnswer(0);

    EXPECT_FALSE(Run());
    EXPECT_EQ(OnlyBox(), "Selected path does not exist: The selected path " +
                             tree.NativePath("src/gone.MOV") +
                             " does not exist. Please select the source clip again.");
}

TEST_F(PreflightChainTest, AnEmptySourcePathSaysSo) {
    session_ = NewSession();
    AddClip(*session_, "");
    ui->QueueBoxAnswer(0);

    EXPECT_FALSE(Run());
    EXPECT_EQ(OnlyBox(), "Selected path does not exist: The source clip path is empty. It might be because "
                         "the selected file path is too long.");
}

TEST_F(PreflightChainTest, AMissingDestinationIsTold) {
    AddCopyDestination("p");
    AddCopyDestination("b")->SetDestinationPath(tree.Path("gone//deeper/"));
    ui->QueueBoxAnswer(0);

    EXPECT_FALSE(Run());
    EXPECT_EQ(OnlyBox(), "Destination path does not exist: The specified destination path " +
                             tree.NativePath("gone/deeper") + " does not exist. Please specify a new one.");
}

TEST_F(PreflightChainTest, AnEmptyDestinationIsNotSet) {
    AddCopyDestination("p")->SetDestinationPath({});
    ui->QueueBoxAnswer(0);

    EXPECT_FALSE(Run());
    EXPECT_EQ(OnlyBox(), "Destination path is not set: Please specify the destination path.");
}

TEST_F(PreflightChainTest, TwoCopiesToOneFolderAreDuplicates) {
    AddCopyDestination("p")->SetSubFolder(u"day1");
    AddCopyDestination("q");
    AddCopyDestination("p")->SetSubFolder(u"day1/");
    ui->QueueBoxAnswer(0);

    EXPECT_FALSE(Run());
    EXPECT_EQ(OnlyBox(), "Duplicate destination paths: Multiple destination paths point are the same: '" +
                             tree.NativePath("p/day1") + "'. Please change or remove one of them.");
}

// On a server project the transfer goes to the server: local folders cannot clash there.
TEST_F(PreflightChainTest, OnlyAProjectOnAServerSkipsTheDuplicateCheck) {
    AddCopyDestination("p");
    AddCopyDestination("p");
    AppFrame::DocumentManager::SetInstance(std::make_shared<AppFrame::FixedDocumentManager>(true));
    EXPECT_TRUE(Run());

    AppFrame::DocumentManager::SetInstance(std::make_shared<AppFrame::FixedDocumentManager>(false));
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
