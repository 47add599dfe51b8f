// The Ingest handler's road from the user's choices to a plan: what stops it and with which box,
// what it asks once, how it numbers, and how far the stored start number moves afterwards.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/pipeline/PlanTestSupport.h"
#include "pipeline/entry/IngestRequest.h"
#include "pipeline/entry/AdvanceRenameCounter.h"
#include "pipeline/naming/RenameCounter.h"
#include "support/PresetFields.h"

namespace igd::test {
namespace {

// A template of one field of each type, its key "scene" and its value given.
IGD::PresetRef Template(QL::_QLPresetCategory category, std::vector<QL::_QLPresetFieldType> types,
                        std::u16string_view value = u"v") {
    QL::PresetFieldList fields;
    for (const QL::_QLPresetFieldType type : types) {
        fields.push_back(Field(type, {}, u"scene"));
        fields.back()->SetValue(Fnd::WString(value));
    }
    return Preset(category, fields);
}

class IngestRequestTest : public PlanTest {
protected:
    void UseRenameTemplate(IGD::IIngestDialogData& session, std::vector<QL::_QLPresetFieldType> types) {
        settings.SetEnableRenameTemplate(true);
        session.SetRenameEnabled(true);
        session.SetRenamePreset(Template(QL::kQLPresetCategoryRename, std::move(types), u"000"));
    }
    bool Check(IGD::IIngestDialogData& session, std::uint32_t firstCounter = 1) {
        return IGD::CheckIngestRequest(session, nullptr, Fnd::Date::Now(), firstCounter,
                                       settings.GetUserDefAutoIncStartNumber());
    }
};

TEST_F(IngestRequestTest, StopsAtTheFirstFailingStepWithItsBoxAndLeavesItemsUnnamed) {
    // A template still being edited stops everything before a name is made.
    auto session = SessionWithClips({"A001.MOV"});
    UseRenameTemplate(*session, {QL::kQLFieldAutoIncrement});
    settings.SetRenameEditMode(true);
    const fluxcore::utility::Guid id = session->GetSelectedItems().front()->GetClipGuid();
    ui->QueueBoxAnswer(0);
    EXPECT_FALSE(Check(*session));
    EXPECT_EQ(OutputNames(*session), Strings{""});
    EXPECT_EQ(session->GetSelectedItems().front()->GetClipGuid(), id);

    settings.ResetToDefaults();
    auto empty = NewSession();
    ui->QueueBoxAnswer(0);
    EXPECT_FALSE(Check(*empty));

    auto noDestination = SessionWithClips({"A002.MOV"});
    noDestination->SetImportOnly(false);
    ui->QueueBoxAnswer(0);
    EXPECT_FALSE(Check(*noDestination));
    EXPECT_EQ(BoxTexts(), (std::vector<std::string>{"IGD: Please save your rename preset before continuing.",
                                                    "Ingest Failure: Please select a file for ingest.",
                                                    "Ingest Failure: Please select a destination."}));
    EXPECT_TRUE(tasks->Tasks().empty());
}

TEST_F(IngestRequestTest, ImportOnlyPassesWithoutThePreflightChainAndGivesEveryItemANewId) {
    auto session = SessionWithClips({"A001.MOV", "A002.MOV"});
    session->SetImportOnly(true);
    ASSERT_TRUE(Check(*session));
    const auto items = session->GetSelectedItems();
    EXPECT_FALSE(items[0]->GetClipGuid().IsZero());
    EXPECT_NE(items[0]->GetClipGuid(), items[1]->GetClipGuid());
    EXPECT_TRUE(ui->Boxes().empty());
}

TEST_F(IngestRequestTest, AsksOnceAboutOldRoughCutsAndOnlyOKGoesOn) {
    auto current = SessionWithClips({"cut.roughcut"});
    current->SetImportOnly(true);
    EXPECT_TRUE(Check(*current));
    EXPECT_TRUE(ui->Boxes().empty()) << "a rough cut of the current format imports unasked";

    for (const int answer : {0, 1}) {
        auto session = SessionWithClips({"A001.MOV", "cut1.RCUT", "cut2.rcut"});
        session->SetImportOnly(true);
        const std::size_t before = ui->Boxes().size();
        ui->QueueBoxAnswer(answer);
        EXPECT_EQ(Check(*session), answer == 0) << "answer " << answer;
        ASSERT_EQ(ui->Boxes().size(), before + 1) << "one question for all rough cuts";
        EXPECT_EQ(Fnd::ToUTF8(ui->Boxes().back().title), "Convert RoughCut");
    }
}

TEST_F(IngestRequestTest, CompletionStoresTheTemplateValuesBesideThePanelsAnswer) {
    QL::MinimumMetadataResult answer;
    answer.keywords = {u"night"};
    for (const bool metadataOn : {true, false}) {
        auto session = SessionWithClips({"A001.MOV"});
        const IGD::IngestDestinationRef destination = AddDestination(*session, "main", true);
        session->SetMetadataEnabled(metadataOn);
        session->SetMetadataPreset(Template(QL::kQLPresetCategoryMetadata, {QL::kQLFieldMetadata}, u"12"));
        ASSERT_TRUE(IGD::CompleteIngestRequest(*session, answer));
        const QL::IngestCustomData stored = session->GetCustomData();
        EXPECT_EQ(stored.minimumMetadata.keywords, answer.keywords);
        ASSERT_EQ(stored.metadataSets.size(), metadataOn ? 1u : 0u);
        if (metadataOn) {
            EXPECT_EQ(stored.metadataSets.front()->values.at(u"scene"), u"12");
        }
        const IGD::CopyDecisionMap decided{{destination, {{u"A001.MOV", QL::kCopyActionNone}}}};
        EXPECT_EQ(*session->GetCopyDecisions(), decided) << "a free target is copied unasked";
    }
}

TEST_F(IngestRequestTest, TheStartNumberMovesByItemsOrByOneForALoneStitch) {
    struct Case {
        const char* what;
        bool customCounter;
        int destinations;
        bool stitch;
        std::uint32_t scope;
        std::uint32_t step;
    };
    const std::vector<Case> cases{
        {"no custom counter", false, 1, false, 0, 0},
        {"a stitch alone", true, 1, true, 0, 1},
        {"a stitch renamed on the primary only", true, 2, true, 1, 1},
        {"a stitch beside a renamed copy", true, 2, true, 0, 3},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(each.what);
        settings.SetUserDefAutoIncStartNumber(10);
        auto session = SessionWithClips({"A.MOV", "B.MOV", "C.MOV"});
        session->SetRenameEnabled(true);
        session->SetRenamePreset(
            Template(QL::kQLPresetCategoryRename,
                   {each.customCounter ? QL::kQLFieldUserDefinedAutoIncrement : QL::kQLFieldAutoIncrement}));
        session->SetRenameApplyScope(each.scope);
        for (int i = 0; i < each.destinations; ++i) {
            auto destination = AddDestination(*session, "d" + std::to_string(i), i == 0);
            if (each.stitch && i == 0)
                Transcode(*destination, /*concatenate=*/true);
        }
        EXPECT_EQ(IGD::RenameCounterStep(*session), each.step);
        IGD::AdvanceRenameCounter(*session);
        EXPECT_EQ(settings.GetUserDefAutoIncStartNumber(), 10 + each.step);

        session->SetRenameEnabled(false);
        IGD::AdvanceRenameCounter(*session);
        EXPECT_EQ(settings.GetUserDefAutoIncStartNumber(), 10 + each.step) << "renaming off moves nothing";
    }
}

// The stored counter holds 32 bits: numbers past its top would wrap round to the day's first
// numbers at the next ingest, so such a request stops before anything is named or copied.
TEST_F(IngestRequestTest, ACounterThatWouldPassItsTopIsRefusedAndOneThatFitsMovesToTheTop) {
    const struct {
        std::uint32_t start, firstCounter;
        bool fits;
    } cases[] = {{4294967292u, 1, true}, {4294967293u, 1, false}, {4294967290u, 4, false},
                 {4294967295u, 1, false}, {0, 1, true}};
    for (const auto& row : cases) {
        SCOPED_TRACE(std::to_string(row.start) + " from counter " + std::to_string(row.firstCounter));
        settings.SetUserDefAutoIncStartNumber(row.start);
        auto session = SessionWithClips({"A.MOV", "B.MOV", "C.MOV"});
        UseRenameTemplate(*session, {QL::kQLFieldUserDefinedAutoIncrement});
        AddDestination(*session, "d", true)->SetTranscodeSetting(std::make_shared<QL::IngestTask::TranscodeSetting>());
        const std::size_t boxes = ui->Boxes().size();
        if (!row.fits)
            ui->QueueBoxAnswer(0);
        EXPECT_EQ(Check(*session, row.firstCounter), row.fits);
        if (row.fits) {
            EXPECT_EQ(ui->Boxes().size(), boxes);
            IGD::AdvanceRenameCounter(*session);
            EXPECT_EQ(settings.GetUserDefAutoIncStartNumber(), row.start == 0 ? 4u : 4294967295u);
            continue;
        }
        ASSERT_EQ(ui->Boxes().size(), boxes + 1);
        EXPECT_EQ(Fnd::ToUTF8(ui->Boxes().back().text),
                  "The counter starts at " + std::to_string(row.start) +
                      " and would pass 4294967295, the largest number it can hold. Please set a lower start "
                      "number.");
        EXPECT_EQ(OutputNames(*session), (Strings{"", "", ""})) << "nothing named";
        EXPECT_EQ(settings.GetUserDefAutoIncStartNumber(), row.start);
        if (row.firstCounter == 1) {
            EXPECT_THROW(IGD::AdvanceRenameCounter(*session), std::overflow_error) << "never wraps unchecked";
        }
    }
}

} // namespace
} // namespace igd::test
