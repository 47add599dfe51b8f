// A panel run as a user runs it: the form's controls, OK and Cancel, and the answer on the bus
// read back as XML.
#include <gtest/gtest.h>
#include <xercesc/dom/DOMElement.hpp>

#include "Fnd/RunLoop.h"
#include "Fnd/SafeXmlParser.h"
#include "Fnd/StationUtils.h"
#include "PanelkitManager/LocalPanelHost.h"
#include "QL/PanelkitEvents.h"
#include "fluxui/controls/UI_Checkbox.h"
#include "fluxui/controls/UI_StaticText.h"
#include "fluxui/controls/UI_TextButton.h"
#include "fluxui/controls/UI_TextEdit.h"
#include "support/ScriptedInteractionDriver.h"
#include "support/TempTree.h"

namespace igd::test {
namespace {

using namespace PanelkitManager;
using namespace fluxui::controls;

const std::string kForm = R"(<form storeEmptyInfo="true">
  <namespace uri="http://ns.example.com/shoot/" prefix="shoot">
    <field key="production" label="Production" required="true"/>
    <field key="scene" label="Scene"/>
  </namespace>
  <field key="keywords" label="Keywords" kind="keywords"/>
  <namespace uri="http://ns.example.com/cam/" prefix="cam">
    <field key="hero" label="Hero take" kind="checkbox"/>
  </namespace>
</form>)";

// Hears the panel station and keeps what arrives.
struct BusRecorder : Fnd::Listener {
    BusRecorder() { Fnd::StationUtils::AddListener(QL::GetPanelkitStationID(), this); }
    ~BusRecorder() override { Fnd::StationUtils::RemoveListener(QL::GetPanelkitStationID(), this); }
    void ListenToMessage(const Fnd::StationID&, const Fnd::Message& message) override {
        if (const auto* bus = Fnd::MessageCast<QL::PanelbusEvent>(message))
            bus_.push_back(*bus);
        if (const auto* stage = Fnd::MessageCast<QL::StageEvent>(message))
            stages_.push_back(*stage);
    }
    void Drain() { Fnd::GetDefaultQueue().Drain(); }
    std::vector<QL::PanelbusEvent> bus_;
    std::vector<QL::StageEvent> stages_;
};

class LocalStageTest : public testing::Test {
protected:
    void SetUp() override {
        tree_.MakeFile("p/shoot/manifest.xml",
                       R"(<panel id="site.minimum" title="Shoot" mode="modal" width="400" height="240"/>)");
        tree_.MakeFile("p/shoot/form.xml", kForm);
        host_ = MakeLocalPanelHost({{tree_.NativePath("p")}});
        extension_ = host_->GetExtensionByID("site.minimum");
        extension_->PrepareStage(false);
        stage_ = host_->GetStage(extension_->GetStageID());
        view_ = stage_->CreateView(stage_->GetBounds());
    }
    template <class T> T& Control(const std::string& id) {
        auto* control = dynamic_cast<T*>(view_->UI_FindNodeByID(id));
        if (!control)
            throw std::runtime_error("no control " + id);
        return *control;
    }
    void Type(const std::string& id, const Fnd::WString& text) { Control<UI_TextEdit>(id).TypeText(text); }

    TempTree tree_;
    std::shared_ptr<PanelHost> host_;
    IExtensionRef extension_;
    IStageRef stage_;
    fluxui::ui::UI_NodeRef view_;
    BusRecorder recorder_;
};

const xercesc::DOMElement* Child(const xercesc::DOMElement& parent, std::u16string_view name, int index = 0) {
    for (auto* child = parent.getFirstElementChild(); child; child = child->getNextElementSibling())
        if (Fnd::WStringView(child->getTagName()) == name && index-- == 0)
            return child;
    return nullptr;
}
Fnd::WString Text(const xercesc::DOMElement* element) {
    return element ? Fnd::WString(element->getTextContent()) : u"<missing>";
}
Fnd::WString Attr(const xercesc::DOMElement* element, const char16_t* name) {
    return element ? Fnd::WString(element->getAttribute(name)) : u"<missing>";
}

TEST_F(LocalStageTest, TheFormIsAToolkitTreeOfLabelsFieldsBoxAndButtons) {
    EXPECT_EQ(stage_->GetTitle(), u"Shoot");
    EXPECT_EQ(stage_->GetBounds(), (fluxcore::geom::RectI{0, 0, 400, 240}));
    EXPECT_EQ(view_->UI_GetLocalRectF().width, 400.0f);
    EXPECT_EQ(Control<UI_StaticText>("label.production").GetValue(), u"Production *");
    EXPECT_EQ(Control<UI_StaticText>("label.scene").GetValue(), u"Scene");
    Control<UI_TextEdit>("field.production");
    Control<UI_TextEdit>("field.keywords");
    EXPECT_EQ(Control<UI_Checkbox>("field.hero").GetText(), u"Hero take");
    EXPECT_FALSE(Control<UI_Checkbox>("applyToAllDestinations").IsChecked());
    EXPECT_EQ(Control<UI_TextButton>("ok").GetText(), u"OK");
    EXPECT_EQ(Control<UI_TextButton>("cancel").GetText(), u"Cancel");
    // Every control lies inside the panel.
    for (auto child = view_->ChildBegin(); child != view_->ChildEnd(); ++child) {
        const auto rect = (*child)->UI_GetLocalRectF(true);
        EXPECT_LE(rect.left + rect.width, 400.0f) << (*child)->UI_GetNodeID();
        EXPECT_LE(rect.top + rect.height, 240.0f) << (*child)->UI_GetNodeID();
    }
}

TEST_F(LocalStageTest, OkPostsTheAnswerWithNamespacesKeywordsFlagsAndEscapedValues) {
    const Fnd::WString awkward = u"Tom & \"Jerry\" <Shorts> 'n'";
    Type("field.production", awkward);
    // A pasted control character and half a surrogate pair cannot travel in XML; a whole pair can.
    Type("field.scene", u"4\u0001B\xD83C\U0001F3AC");
    Type("field.keywords", u" night, exterior;; rain ,");
    Control<UI_Checkbox>("field.hero").Press();
    Control<UI_Checkbox>("applyToAllDestinations").Press();
    Control<UI_TextButton>("ok").Press();
    EXPECT_EQ(stage_->GetRunState(), 0);
    EXPECT_FALSE(extension_->IsStagePrepared());
    recorder_.Drain();

    ASSERT_EQ(recorder_.bus_.size(), 1u);
    EXPECT_EQ(recorder_.bus_[0].eventType, Event::GetPanelkitEventTypeMinimumMetadata());
    const Fnd::WString& data = recorder_.bus_[0].eventData;
    EXPECT_EQ(GetInfoForProperty(data, "status", false), u"OK");
    ASSERT_EQ(recorder_.stages_.size(), 1u);
    EXPECT_EQ(recorder_.stages_[0].eventCode, QL::kStageEventClosed);
    EXPECT_EQ(recorder_.stages_[0].stageID, stage_->GetStageID());

    Fnd::SafeXmlParser parser;
    const auto* document = parser.Parse(Fnd::ToUTF8(data));
    ASSERT_NE(document, nullptr) << parser.Error();
    const xercesc::DOMElement* minimum = Child(*document->getDocumentElement(), u"minimumMetadata");
    ASSERT_NE(minimum, nullptr);
    const xercesc::DOMElement* shoot = Child(*minimum, u"namespace", 0);
    const xercesc::DOMElement* cam = Child(*minimum, u"namespace", 1);
    EXPECT_EQ(Attr(shoot, u"URI"), u"http://ns.example.com/shoot/");
    EXPECT_EQ(Attr(shoot, u"prefix"), u"shoot");
    EXPECT_EQ(Text(Child(*shoot, u"production")), awkward);
    EXPECT_EQ(Text(Child(*shoot, u"scene")), u"4B\U0001F3AC");
    EXPECT_EQ(Attr(cam, u"URI"), u"http://ns.example.com/cam/");
    EXPECT_EQ(Text(Child(*cam, u"hero")), u"true");
    const xercesc::DOMElement* keywords = Child(*minimum, u"keywords");
    ASSERT_NE(keywords, nullptr);
    EXPECT_EQ(Text(Child(*keywords, u"keyword", 0)), u"night");
    EXPECT_EQ(Text(Child(*keywords, u"keyword", 1)), u"exterior");
    EXPECT_EQ(Text(Child(*keywords, u"keyword", 2)), u"rain");
    EXPECT_EQ(Child(*keywords, u"keyword", 3), nullptr);
    EXPECT_EQ(Text(Child(*minimum, u"storeEmptyInfo")), u"true");
    EXPECT_EQ(Text(Child(*minimum, u"applyToAllDestinations")), u"true");
}

TEST_F(LocalStageTest, AMissingRequiredFieldRefusesWithOneBoxAndPostsNothing) {
    ScopedInteractionDriver ui;
    ui->QueueBoxAnswer(0);
    Type("field.production", u"   ");
    Control<UI_TextButton>("ok").Press();
    recorder_.Drain();
    ASSERT_EQ(ui->Boxes().size(), 1u);
    EXPECT_NE(ui->Boxes()[0].text.find(u"Production"), Fnd::WString::npos);
    EXPECT_TRUE(recorder_.bus_.empty());
    EXPECT_TRUE(recorder_.stages_.empty());
    EXPECT_EQ(stage_->GetRunState(), 1);
    EXPECT_TRUE(Control<UI_TextEdit>("field.production").UI_HasKeyboardFocus());
}

TEST_F(LocalStageTest, CancelAnswersOnceWithAStatusThatIsNotOk) {
    Control<UI_TextButton>("cancel").Press();
    Control<UI_TextButton>("ok").Press(); // the run has ended: a late press says nothing
    recorder_.Drain();
    ASSERT_EQ(recorder_.bus_.size(), 1u);
    EXPECT_EQ(GetInfoForProperty(recorder_.bus_[0].eventData, "status", false), u"Cancel");
    EXPECT_EQ(recorder_.stages_.size(), 1u);
    EXPECT_EQ(stage_->GetRunState(), 0);
}

TEST_F(LocalStageTest, ParkUnparkUnloadAndPrepareAgainGiveAFreshStage) {
    const std::int32_t first = stage_->GetStageID();
    host_->ParkStage(first);
    EXPECT_EQ(stage_->GetRunState(), 0);
    host_->UnparkStage(first);
    EXPECT_EQ(stage_->GetRunState(), 1);

    extension_->ReleaseStage();
    EXPECT_EQ(extension_->GetStageID(), kNoStage);
    host_->UnloadStage(first);
    EXPECT_TRUE(stage_->IsClosed());
    EXPECT_EQ(host_->GetStage(first), nullptr);
    host_->UnparkStage(first); // gone: nothing happens
    recorder_.Drain();
    ASSERT_EQ(recorder_.bus_.size(), 1u);
    EXPECT_EQ(recorder_.bus_[0].eventType, Event::GetPanelkitEventTypeExtensionUnloaded());
    EXPECT_EQ(recorder_.bus_[0].eventData, u"site.minimum");

    extension_->PrepareStage(true);
    ASSERT_NE(extension_->GetStageID(), first);
    IStageRef second = host_->GetStage(extension_->GetStageID());
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(second->GetRunState(), 0) << "prepared parked";
    host_->UnparkStage(second->GetStageID());
    EXPECT_TRUE(extension_->IsStagePrepared());
}

TEST(PanelAnswerPropertyTest, GetInfoForPropertyReadsTheDocumentElementOrSearches) {
    const Fnd::WString data = uR"(<answer status="ok"><inner status="deep" other="x &amp; y"/></answer>)";
    EXPECT_EQ(GetInfoForProperty(data, "status", false), u"ok");
    EXPECT_EQ(GetInfoForProperty(data, "other", false), u"");
    EXPECT_EQ(GetInfoForProperty(data, "other", true), u"x & y");
    EXPECT_EQ(GetInfoForProperty(u"<answer/>", "status", true), u"");
    EXPECT_EQ(GetInfoForProperty(u"not xml <", "status", false), u"");
    EXPECT_EQ(GetInfoForProperty(u"", "status", false), u"");
}

} // namespace
} // namespace igd::test
