#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>

#include "AppFrame/Workspace.h"
#include "IGD/IngestDialogApi.h"
#include "fluxui/controls/UI_PictureButton.h"
#include "shell/resources/IngestResources.h"

namespace igd::test {
namespace {

using fluxui::controls::PictureState;
using fluxui::controls::UI_PictureSupplyMessage;
using IGD::IngestResources;

// A workspace whose drawing resources the test can tell apart.
class TestWorkspace : public fluxworkspace::workspace::Workspace {
public:
    TestWorkspace() : Workspace(nullptr) {}
    fluxui::sketcher::SupplierInterface* GetDrawSupplier() const override { return &supplier; }
    mutable fluxui::sketcher::SupplierInterface supplier;
};

class IngestResourcesTest : public ::testing::Test {
protected:
    void SetUp() override { IngestResources::Release(); }
    void TearDown() override {
        IngestResources::Release();
        AppFrame::Workspace::Install(nullptr);
    }
};

TEST_F(IngestResourcesTest, TheFirstCreateWinsUntilReleaseAndTheHostsSupplierComesFirst) {
    IngestResources::Create(nullptr);
    EXPECT_EQ(IngestResources::GetDrawSupplier(), nullptr);
    IGD::ReleaseIngestResHandlers(); // the library's export releases it
    EXPECT_EQ(IngestResources::Instance(), nullptr);

    TestWorkspace embedded;
    IngestResources::Create(&embedded); // as the embedded view does
    IngestResources::Create(nullptr);   // as the dialog does afterwards
    EXPECT_EQ(IngestResources::GetDrawSupplier(), &embedded.supplier);
    auto host = std::make_shared<TestWorkspace>();
    AppFrame::Workspace::Install(host);
    EXPECT_EQ(IngestResources::GetDrawSupplier(), &host->supplier);
}

TEST_F(IngestResourcesTest, EveryDecalShowsTheFamilyItsButtonMeansAtEveryScale) {
    IngestResources::Create(nullptr);
    std::set<std::string> names;
    for (int index = 0; index < IngestResources::kDecalCount; ++index) {
        SCOPED_TRACE(index);
        names.insert(IngestResources::Instance()->GetDecalName(index).str());
        for (float scale : {1.0f, 1.5f, 2.0f}) {
            UI_PictureSupplyMessage message;
            message.displayScale = scale;
            IngestResources::SupplyImage(index, message);
            ASSERT_TRUE(message.HasImage());
            EXPECT_EQ(message.imageName, IngestResources::Instance()->GetDecalName(index).str());
            EXPECT_GT(message.pixelWidth, 0);
            EXPECT_TRUE(message.resourceType == "SVG" || message.imageScale == scale);
        }
    }
    EXPECT_EQ(names.size(), static_cast<std::size_t>(IngestResources::kDecalCount));
}

TEST_F(IngestResourcesTest, APictureButtonGetsItsDecalAndNothingAfterRelease) {
    IngestResources::Create(nullptr);
    fluxui::controls::UI_PictureButton button;
    button.SetImageSupplyFunction(IngestResources::ImageSupplyFunction(7));
    EXPECT_EQ(button.GetPictureMessage(PictureState::Normal, 2.0f).resourceName, "SP_DELETE_WI_N_D_AT_2X");
    EXPECT_EQ(button.GetPicture(PictureState::Normal), "DELETE_WI_N_D");
    EXPECT_THROW(IngestResources::ImageSupplyFunction(10), std::out_of_range);

    auto supply = IngestResources::ImageSupplyFunction(0);
    IngestResources::Release();
    UI_PictureSupplyMessage message;
    (*supply)(message);
    EXPECT_FALSE(message.HasImage());
}

} // namespace
} // namespace igd::test
