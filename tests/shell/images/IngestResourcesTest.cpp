#include <gtest/gtest.h>

#include <memory>
#include <set>
#include <string>
#include <vector>

#include "Fnd/NullInterfaceException.h"
#include "IGD/IngestDialogApi.h"
#include "shell/resources/IngestResources.h"
#include "AppFrame/Workspace.h"
#include "fluxui/controls/UI_PictureButton.h"

namespace igd::test {
namespace {

using fluxui::controls::PictureState;
using fluxui::controls::UI_PictureSupplyMessage;
using IGD::IngestResources;

class Supplier : public fluxui::sketcher::SupplierInterface {};

// A workspace whose drawing resources the test can tell apart.
class TestWorkspace : public fluxworkspace::workspace::Workspace {
public:
    TestWorkspace() : Workspace(nullptr) {}
    fluxui::sketcher::SupplierInterface* GetDrawSupplier() const override { return &supplier; }
    mutable Supplier supplier;
};

class IngestResourcesTest : public ::testing::Test {
protected:
    void SetUp() override { IngestResources::Release(); }
    void TearDown() override {
        IngestResources::Release();
        AppFrame::Workspace::Install(nullptr);
    }

    UI_PictureSupplyMessage Supply(int index, float displayScale = 1.0f) {
        UI_PictureSupplyMessage message;
        message.displayScale = displayScale;
        IngestResources::SupplyImage(index, message);
        return message;
    }
};

TEST_F(IngestResourcesTest, TheFirstCreateWinsUntilReleaseAndTheHostsSupplierComesFirst) {
    EXPECT_EQ(IngestResources::GetDrawSupplier(), nullptr);
    IngestResources::Create(nullptr);
    EXPECT_EQ(IngestResources::GetDrawSupplier(), nullptr);
    IGD::ReleaseIngestResHandlers(); // the library's export releases it
    EXPECT_EQ(IngestResources::Instance(), nullptr);
    EXPECT_THROW(IngestResources::GetResourceManager(), Fnd::NullInterfaceException);
    IngestResources::Release(); // a second release does nothing

    TestWorkspace embedded;
    IngestResources::Create(&embedded); // as the embedded view does
    IngestResources* first = IngestResources::Instance();
    IngestResources::Create(nullptr); // as the dialog does afterwards
    EXPECT_EQ(IngestResources::Instance(), first);
    EXPECT_EQ(first->GetWorkspace(), &embedded);
    EXPECT_EQ(first->GetImageProvider().GetDrawSupplier(), &embedded.supplier);
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
            const UI_PictureSupplyMessage message = Supply(index, scale);
            ASSERT_TRUE(message.HasImage());
            EXPECT_EQ(message.imageName, IngestResources::Instance()->GetDecalName(index).str());
            EXPECT_FALSE(message.bytes.empty());
            EXPECT_GT(message.pixelWidth, 0);
            if (message.resourceType == "PNG")
                EXPECT_EQ(message.imageScale, scale);
            else
                EXPECT_EQ(message.resourceType, "SVG");
        }
    }
    EXPECT_EQ(names.size(), static_cast<std::size_t>(IngestResources::kDecalCount));
}

TEST_F(IngestResourcesTest, APictureButtonGetsItsDecalThroughTheSupplyFunction) {
    IngestResources::Create(nullptr);
    fluxui::controls::UI_PictureButton button;
    button.SetImageSupplyFunction(IngestResources::ImageSupplyFunction(7));
    const UI_PictureSupplyMessage message = button.GetPictureMessage(PictureState::Normal, 2.0f);
    EXPECT_EQ(message.resourceName, "SP_DELETE_WI_N_D_AT_2X");
    EXPECT_EQ(message.pixelWidth, 40);
    EXPECT_EQ(message.pixelHeight, 26);
    EXPECT_EQ(button.GetPicture(PictureState::Normal), "DELETE_WI_N_D");
}

TEST_F(IngestResourcesTest, AnIndexOutsideTheTableIsAFaultAndARequestAfterReleaseGetsNothing) {
    IngestResources::Create(nullptr);
    EXPECT_THROW(IngestResources::ImageSupplyFunction(10), std::out_of_range);
    EXPECT_THROW(IngestResources::ImageSupplyFunction(-1), std::out_of_range);
    UI_PictureSupplyMessage message;
    EXPECT_THROW(IngestResources::SupplyImage(10, message), std::out_of_range);
    EXPECT_THROW(IngestResources::Instance()->GetDecalName(10), std::out_of_range);

    auto supply = IngestResources::ImageSupplyFunction(0);
    IngestResources::Release();
    (*supply)(message);
    EXPECT_FALSE(message.HasImage()) << "after release a request gets nothing and does not fail";
}

} // namespace
} // namespace igd::test
