// A host's direct request without its own batch is checked before anything is submitted: a
// refused check ends it with one box, no task and no start of the batch.
#include <gtest/gtest.h>

#include <vector>

#include "Fnd/Listener.h"
#include "Fnd/RunLoop.h"
#include "Fnd/StationUtils.h"
#include "IGD/IngestApi.h"
#include "PlanTestSupport.h"
#include "QL/IngestMessages.h"

namespace igd::test {
namespace {

class PostedMessages : public Fnd::Listener {
public:
    PostedMessages() { Fnd::StationUtils::AddListener(QL::kStation_IngestMedia, this); }
    ~PostedMessages() override { Fnd::StationUtils::RemoveListener(QL::kStation_IngestMedia, this); }
    void ListenToMessage(const Fnd::StationID&, const Fnd::Message& message) override {
        ids.push_back(message.GetMessageID());
    }
    std::size_t Count() {
        Fnd::GetDefaultQueue().Drain();
        return ids.size();
    }
    std::vector<Fnd::MessageID> ids;
};

class DirectIngestPreflightTest : public PlanTest {
protected:
    QL::IngestMediaGroup GroupTo(const char* destination) {
        QL::IngestMediaGroup group;
        group.paths = {tree.MakeFile("in/clip.MOV", "frames")};
        group.transferMode = u"Copy";
        group.destinationPath = tree.MakeFolder(destination);
        return group;
    }

    PostedMessages messages;
    const fluxcore::utility::Guid batch_ = fluxcore::utility::Guid::CreateUnique();
};

TEST_F(DirectIngestPreflightTest, ARefusedCheckEndsTheRequestWithOneBox) {
    ui->QueueBoxAnswer(0);
    IGD::DoIngestMedia(GroupTo("in"), /*useGivenBatch=*/false, true, false, batch_);

    ASSERT_EQ(ui->Boxes().size(), 1u);
    EXPECT_EQ(Fnd::ToUTF8(ui->Boxes()[0].title + u": " + ui->Boxes()[0].text),
              "Transfer Error: The destination folder path " + tree.NativePath("in") +
                  " is the same as the source folder. Cannot transfer to the source folder.");
    EXPECT_TRUE(tasks->Tasks().empty());
    EXPECT_EQ(messages.Count(), 0u);
}

} // namespace
} // namespace igd::test
