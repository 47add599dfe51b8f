// The rename and metadata templates before and during an ingest: the checks that pass silently,
// ask or refuse in their exact words; which destinations apply them; the values and names they make.
#include <gtest/gtest.h>

#include <stdlib.h>
#include <time.h>

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "tests/pipeline/PlanTestSupport.h"
#include "fluxcore/ApplicationName.h"
#include "fluxmetadata/DynamicSchema.h"
#include "pipeline/apply/ApplyFlags.h"
#include "pipeline/checks/TemplateChecks.h"
#include "pipeline/naming/FileCreationTime.h"
#include "pipeline/naming/OutputNameBuilder.h"
#include "pipeline/naming/OutputNames.h"
#include "pipeline/naming/RenameSampleText.h"
#include "pipeline/session/IngestDialogData.h"
#include "support/PresetFields.h"

namespace igd::test {
namespace {

using IGD::PresetRef;
using Fields = QL::PresetFieldList;

Fnd::InterfaceRef<QL::IQLPresetField> Text(std::u16string_view value) {
    return Field(QL::kQLFieldCustomText, value);
}

Fnd::InterfaceRef<QL::IQLPresetField> Metadata(std::u16string_view key, std::u16string_view value,
                                               bool required = false) {
    return Field(QL::kQLFieldMetadata, value, key, required);
}

PresetRef Template(const Fields& fields) {
    return Preset(QL::kQLPresetCategoryRename, fields, u"Names");
}

// 2024-03-05 14:30:59 UTC.
constexpr Fnd::Date kIngestDate{1709649059};

// The session and the controller's switches as the dialog leaves them before an ingest. Names are
// checked in UTC so that the expected texts hold on any station.
class TemplateTest : public PlanTest {
protected:
    TemplateTest() {
        // Stop boxes carry the host's name.
        fluxcore::config::SetApplicationName(u"Kiln Studio");
        if (const char* zone = getenv("TZ"))
            savedZone_ = zone;
        setenv("TZ", "UTC", 1);
        tzset();
    }
    ~TemplateTest() override {
        if (savedZone_)
            setenv("TZ", savedZone_->c_str(), 1);
        else
            unsetenv("TZ");
        tzset();
    }

    // The one call of the naming step, at the fixed ingest date.
    void Name(IGD::IIngestDialogData& session) const {
        IGD::GenerateOutputNames(session, kIngestDate, startNumber_);
    }
    IGD::IngestDialogDataRef NamedSession(const QL::PresetFieldList& fields,
                                          std::initializer_list<std::string_view> clips) {
        auto session = SessionWithClips(clips);
        session->SetRenamePreset(Template(fields));
        Name(*session);
        return session;
    }

    // Each box shown from the first'th on, as "title: text [buttons]".
    std::vector<std::string> BoxesFrom(std::size_t first) const {
        std::vector<std::string> shown;
        for (std::size_t i = first; i < ui->Boxes().size(); ++i) {
            const Fnd::MessageBoxRequest& box = ui->Boxes()[i];
            std::string buttons;
            for (const Fnd::WString& button : box.buttons)
                buttons += (buttons.empty() ? "" : "|") + Fnd::ToUTF8(button);
            shown.push_back(Fnd::ToUTF8(box.title + u": " + box.text) + " [" + buttons + "]");
        }
        return shown;
    }

    // Each row through the check of its category, with that template switched on.
    template <class Row> void RunRows(QL::_QLPresetCategory category, const std::vector<Row>& rows) {
        const bool rename = category == QL::kQLPresetCategoryRename;
        for (const Row& row : rows) {
            SCOPED_TRACE(row.what);
            const std::size_t first = ui->Boxes().size();
            const PresetRef preset = row.hasPreset ? Preset(category, row.fields) : nullptr;
            if (rename) {
                settings.SetEnableRenameTemplate(true);
                settings.SetRenameEditMode(row.editMode);
                session_->SetRenamePreset(preset);
            } else {
                settings.SetEnableMetadataTemplate(true);
                settings.SetMetadataEditMode(row.editMode);
                session_->SetMetadataPreset(preset);
            }
            for (int answer : row.answers)
                ui->QueueBoxAnswer(answer);

            EXPECT_EQ(rename ? IGD::CheckRenameTemplate(*session_, nullptr)
                             : IGD::CheckMetadataTemplate(*session_, nullptr),
                      row.passes);
            EXPECT_EQ(BoxesFrom(first), row.boxes);
            EXPECT_EQ(ui->UnusedAnswers(), 0u);
        }
    }

    IGD::IngestDialogDataRef session_ = NewSession();
    std::uint32_t startNumber_ = 1;

private:
    std::optional<std::string> savedZone_;
};

const std::string kEmptyRenameQuestion =
    "Empty Preset: You have chosen an empty Rename preset. Do you want to continue? [Yes|No]";
const std::string kEmptyMetadataQuestion =
    "Empty Preset: You have chosen an empty Metadata preset. Do you want to continue? [Yes|No]";
const std::string kNoEffect =
    "Kiln Studio: Cannot proceed with current Rename preset.\n\nNo effective preset field is found. [OK]";

struct TemplateCase {
    const char* what;
    bool editMode;
    bool hasPreset;
    Fields fields;
    std::vector<int> answers; // to the boxes, in order
    bool passes;
    std::vector<std::string> boxes;
};

// Rows of the rename check, all with the template switched on.
// clang-format off
const std::vector<TemplateCase>& RenameCases() {
    static const std::vector<TemplateCase> cases{
        {"edit mode refuses before the preset is looked at", true, false, {}, {0}, false,
         {"Kiln Studio: Please save your rename preset before continuing. [OK]"}},
        {"no preset, and the user goes on", false, false, {}, {0}, true, {kEmptyRenameQuestion}},
        {"no preset, and the user stops", false, false, {}, {1}, false, {kEmptyRenameQuestion}},
        {"an empty text field alone has no effect", false, true, {Text(u"")}, {0}, false, {kNoEffect}},
        {"a text field of dots makes no name", false, true, {Text(u"."), Text(u"")}, {0}, false, {kNoEffect}},
        {"a date field with an empty text field passes", false, true,
         {Field(QL::kQLFieldCreationDate), Text(u"")}, {}, true, {}},
        {"a usable text field passes", false, true, {Text(u""), Text(u"Day 1")}, {}, true, {}},
        {"an illegal character refuses, even after a field with effect", false, true,
         {Field(QL::kQLFieldFileName), Text(u"Scene:1")}, {0}, false,
         {"Kiln Studio: Cannot proceed with the current Rename preset.\n\nA text field in Rename preset cannot "
          "contain any of the following characters:\n\\ / : * ? \" < > | [OK]"}},
    };
    return cases;
}
// clang-format on

TEST_F(TemplateTest, RenameTemplateRows) {
    RunRows(QL::kQLPresetCategoryRename, RenameCases());
}

// Off means off: neither the edit flag nor an empty or broken preset matters then.
TEST_F(TemplateTest, SwitchedOffTemplatesPassWithoutLookingAtThem) {
    settings.SetRenameEditMode(true);
    settings.SetMetadataEditMode(true);
    session_->SetRenameEnabled(true);
    session_->SetMetadataEnabled(true);
    session_->SetRenamePreset(Preset(QL::kQLPresetCategoryRename, {Text(u"a:b")}));
    session_->SetMetadataPreset(Preset(QL::kQLPresetCategoryMetadata, {Metadata(u"scene", u"", true)}));

    EXPECT_TRUE(IGD::CheckRenameTemplate(*session_, nullptr));
    EXPECT_TRUE(IGD::CheckMetadataTemplate(*session_, nullptr));
    EXPECT_TRUE(ui->Boxes().empty());
}

// clang-format off
const std::vector<TemplateCase>& MetadataCases() {
    static const std::vector<TemplateCase> cases{
        {"edit mode refuses", true, true, {Metadata(u"scene", u"1", true)}, {0}, false,
         {"Kiln Studio: Please save your metadata preset before continuing. [OK]"}},
        {"no preset, and the user goes on", false, false, {}, {0}, true, {kEmptyMetadataQuestion}},
        {"a preset without fields, and the user stops", false, true, {}, {1}, false, {kEmptyMetadataQuestion}},
        {"the first empty required field is named", false, true,
         {Metadata(u"take", u"", false), Metadata(u"scene", u"", true), Metadata(u"shot", u"", true)}, {0},
         false, {"Kiln Studio: Required field scene is empty. [OK]"}},
        {"required fields with values and optional empty ones pass", false, true,
         {Metadata(u"scene", u"12", true), Metadata(u"take", u"", false)}, {}, true, {}},
    };
    return cases;
}
// clang-format on

TEST_F(TemplateTest, MetadataTemplateRows) {
    RunRows(QL::kQLPresetCategoryMetadata, MetadataCases());
}

// What the session holds, and what the primary and a backup then apply.
TEST(ComputeApplyFlags, DecidesPerDestinationFromEnableFlagsPresetsAndScopes) {
    const struct {
        const char* what;
        bool enabled;
        bool withPreset;
        std::uint32_t renameScope;
        bool primaryApplies, backupRenames, backupMetadata;
    } cases[] = {
        {"both on, all destinations", true, true, 0, true, true, true},
        {"rename on the primary only", true, true, 1, true, false, true},
        {"a scope other than 0 or 1 is the primary's", true, true, 7, true, false, true},
        {"enabled without a preset", true, false, 0, false, false, false},
        {"a preset without enable", false, true, 0, false, false, false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        IGD::IngestDialogData session;
        session.SetRenameEnabled(c.enabled);
        session.SetRenamePreset(c.withPreset ? Preset(QL::kQLPresetCategoryRename, {Field(QL::kQLFieldFileName)}) : nullptr);
        session.SetRenameApplyScope(c.renameScope);
        session.SetMetadataEnabled(c.enabled);
        session.SetMetadataPreset(c.withPreset ? Preset(QL::kQLPresetCategoryMetadata, {Metadata(u"scene", u"1")}) : nullptr);
        IGD::IngestDestinationRef backup(new IGD::IngestDestination), primary(new IGD::IngestDestination);
        primary->SetPrimary(true);
        // Stale flags from an earlier run must be replaced, not kept.
        for (const auto& destination : {backup, primary}) {
            destination->SetApplyRename(true);
            destination->SetApplyMetadata(true);
            session.AddDestination(destination);
        }

        IGD::ComputeApplyFlags(session);
        EXPECT_EQ(primary->IsApplyRename(), c.primaryApplies);
        EXPECT_EQ(primary->IsApplyMetadata(), c.primaryApplies);
        EXPECT_EQ(backup->IsApplyRename(), c.backupRenames);
        EXPECT_EQ(backup->IsApplyMetadata(), c.backupMetadata);
    }
}

// Each template's values live under a namespace of its name: two names must never share one.
TEST(MakeDynamicSchemaNamespace, IsAStableUriUniquePerName) {
    std::set<std::string> seen;
    for (const char* name : {"Production", "production", "a b", "a%20b", "a_b", "", ".", "a/b", "Production "})
        EXPECT_TRUE(seen.insert(fluxmetadata::MakeDynamicSchemaNamespace(name)).second) << name;
    EXPECT_EQ(fluxmetadata::MakeDynamicSchemaNamespace("Production"),
              "http://ns.igd.local/dynamic-schema/1.0/Production/");
}

TEST(FormatCounterValue, PadsWithTheMasksLeadingCharactersAndNeverCuts) {
    EXPECT_EQ(IGD::FormatCounterValue(0, 7, u"abc"), u"ab7");
    EXPECT_EQ(IGD::FormatCounterValue(100, 2, u"0000"), u"0102");
    EXPECT_EQ(IGD::FormatCounterValue(0, 12345, u"000"), u"12345");
    EXPECT_EQ(IGD::FormatCounterValue(0, 5, u""), u"5");
    EXPECT_EQ(IGD::FormatCounterValue(4294967295u, 1, u"0"), u"4294967296") << "the sum must not wrap";
}

// The automatic counter starts at one; the custom one at the start number. Each steps once for
// every item, however often the template names it.
TEST_F(TemplateTest, CountersStepOnceForEachItemInOrder) {
    using QL::kQLFieldAutoIncrement, QL::kQLFieldCustomText, QL::kQLFieldUserDefinedAutoIncrement;
    const struct {
        const char* what;
        std::uint32_t start;
        QL::PresetFieldList fields;
        Strings names;
    } cases[] = {
        {"automatic counter",
         100,
         {Field(kQLFieldAutoIncrement, u"000"), Field(kQLFieldCustomText, u"_"), Field(QL::kQLFieldFileName)},
         {"001_a", "002_b", "003_c.clip"}},
        {"an unset start number counts as 1", 0, {Field(kQLFieldUserDefinedAutoIncrement, u"0000")},
         {"0001", "0002", "0003"}},
        {"both kinds, one named twice",
         100,
         {Field(kQLFieldAutoIncrement, u"00"), Field(kQLFieldCustomText, u"-"),
          Field(kQLFieldUserDefinedAutoIncrement, u"0000"), Field(kQLFieldAutoIncrement, u"0")},
         {"01-01001", "02-01012", "03-01023"}},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.what);
        startNumber_ = row.start;
        EXPECT_EQ(OutputNames(*NamedSession(row.fields, {"a.mov", "b.mov", "c.clip.MXF"})), row.names);
    }
}

TEST_F(TemplateTest, IngestDatesUseTheGivenTimeAndCreationDatesTheFile) {
    auto session =
        NamedSession({Field(QL::kQLFieldIngestDate, u"%Y-%m-%d"), Field(QL::kQLFieldCustomText, u"_"),
                      Field(QL::kQLFieldIngestTime, u"%H-%M-%S"), Field(QL::kQLFieldCustomText, u"_"),
                      Field(QL::kQLFieldCreationDate, u"%Y")},
                     {"a.mov"});
    // The file was just made, so its year is this year, never the ingest date's.
    char year[8];
    const time_t now = time(nullptr);
    struct tm local {};
    localtime_r(&now, &local);
    strftime(year, sizeof year, "%Y", &local);
    EXPECT_EQ(OutputNames(*session), (Strings{std::string("2024-03-05_14-30-59_") + year}));
}

TEST_F(TemplateTest, BaseNameIsTheClipNameOnlyWhenItDiffersFromTheFileName) {
    auto session = SessionWithClips({"A001.MOV", "A002.MOV"});
    session->SetRenamePreset(Template({Field(QL::kQLFieldFileName)}));
    const auto items = session->GetSelectedItems();
    static_cast<IGD::SelectedClipItem&>(*items[0]).SetClipName(u"A001.MOV");
    static_cast<IGD::SelectedClipItem&>(*items[1]).SetClipName(u"Interview Take 2");
    tree.MakeFolder("src/CARD_01");
    AddFolder(*session, "CARD_01/", {});
    Name(*session);
    EXPECT_EQ(OutputNames(*session), (Strings{"A001", "Interview Take 2", "CARD_01"}));
}

TEST_F(TemplateTest, EachStitchingDestinationCountsOnItsOwn) {
    auto session = SessionWithClips({"a.mov", "b.mov", "c.mov"});
    session->SetRenamePreset(
        Template({Field(QL::kQLFieldFileName), Field(QL::kQLFieldCustomText, u"  _"),
                  Field(QL::kQLFieldAutoIncrement, u"00"), Field(QL::kQLFieldCustomText, u" \t")}));
    auto first = Transcode(*AddDestination(*session, "one", true), true);
    auto second = Transcode(*AddDestination(*session, "two", false), true);
    auto plain = Transcode(*AddDestination(*session, "three", false), false);
    second->concatenateName = u"Day 2";
    Name(*session);
    EXPECT_EQ(first->concatenateName, u"Stitched  _01") << "trailing blanks are trimmed";
    EXPECT_EQ(second->concatenateName, u"Day 2  _01");
    EXPECT_EQ(plain->concatenateName, u"Stitched") << "a transcode that does not stitch keeps its name";
    EXPECT_EQ(OutputNames(*session), (Strings{"a  _01 \t", "b  _02 \t", "c  _03 \t"}))
        << "only stitched names are trimmed";
}

TEST_F(TemplateTest, SampleShowsMasksPlaceholdersAndTheStartNumber) {
    auto custom = Field(QL::kQLFieldUserDefinedAutoIncrement);
    custom->SetFormat(u"0000");
    const QL::PresetFieldList fields{Field(QL::kQLFieldAutoIncrement, u"000"),
                                     Field(QL::kQLFieldCustomText, u"_"),
                                     Field(QL::kQLFieldFileName),
                                     Field(QL::kQLFieldCustomText, u"_"),
                                     Field(QL::kQLFieldIngestDate, u"%Y"),
                                     Field(QL::kQLFieldMetadata, u"x"),
                                     custom};
    EXPECT_EQ(IGD::BuildRenameSampleText(fields, 42, kIngestDate), u"000_File Name_20240042");
}

} // namespace
} // namespace igd::test
