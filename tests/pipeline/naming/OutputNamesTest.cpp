#include <gtest/gtest.h>

#include <stdlib.h>
#include <time.h>

#include <optional>
#include <string>
#include <vector>

#include "tests/pipeline/PlanTestSupport.h"
#include "QL/PresetFieldFactory.h"
#include "QL/PresetObject.h"
#include "pipeline/naming/FileCreationTime.h"
#include "pipeline/naming/OutputNameBuilder.h"
#include "pipeline/naming/OutputNames.h"
#include "pipeline/naming/RenameSampleText.h"

namespace igd::test {
namespace {

Fnd::InterfaceRef<QL::IQLPresetField> Field(QL::_QLPresetFieldType type, std::u16string_view value = {}) {
    auto field = QL::CreatePresetField(type);
    field->SetValue(Fnd::WString(value));
    return field;
}

IGD::PresetRef Template(const QL::PresetFieldList& fields) {
    return IGD::PresetRef(QL::PresetObject::Create(QL::kQLPresetCategoryRename, u"Names", fields).get());
}

// 2024-03-05 14:30:59 UTC.
constexpr Fnd::Date kIngestDate{1709649059};

// Names are checked in UTC so that the expected texts hold on any station; the start number is
// process-wide, so every test leaves it as it found it.
class OutputNamesTest : public PlanTest {
protected:
    OutputNamesTest() {
        const char* zone = getenv("TZ");
        if (zone != nullptr)
            savedZone_ = zone;
        setenv("TZ", "UTC", 1);
        tzset();
    }
    ~OutputNamesTest() override {
        if (savedZone_)
            setenv("TZ", savedZone_->c_str(), 1);
        else
            unsetenv("TZ");
        tzset();
    }

    void SetStartNumber(std::uint32_t number) { startNumber_ = number; }

    static Strings OutputNames(const IGD::IIngestDialogData& session) {
        Strings names;
        for (const auto& item : session.GetSelectedItems())
            names.push_back(Fnd::ToUTF8(item->GetOutputName()));
        return names;
    }

    IGD::IngestDialogDataRef NamedSession(const QL::PresetFieldList& fields,
                                          std::initializer_list<std::string_view> clips) {
        auto session = SessionWithClips(clips);
        session->SetRenamePreset(Template(fields));
        IGD::GenerateOutputNames(*session, kIngestDate, startNumber_);
        return session;
    }

private:
    std::optional<std::string> savedZone_;
    std::uint32_t startNumber_ = 1;
};

TEST(FormatCounterValue, PadsWithTheMasksLeadingCharactersAndNeverCuts) {
    EXPECT_EQ(IGD::FormatCounterValue(0, 12, u"0001"), u"0012");
    EXPECT_EQ(IGD::FormatCounterValue(0, 7, u"abc"), u"ab7");
    EXPECT_EQ(IGD::FormatCounterValue(100, 2, u"0000"), u"0102");
    EXPECT_EQ(IGD::FormatCounterValue(0, 12345, u"000"), u"12345");
    EXPECT_EQ(IGD::FormatCounterValue(0, 5, u""), u"5");
    EXPECT_EQ(IGD::FormatCounterValue(4294967295u, 1, u"0"), u"4294967296") << "the sum must not wrap";
}

// The automatic counter starts at one; the custom one at the start number. Each steps once for
// every item, however often the template names it.
TEST_F(OutputNamesTest, CountersStepOnceForEachItemInOrder) {
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
        {"custom counter", 100, {Field(kQLFieldUserDefinedAutoIncrement, u"0000")}, {"0100", "0101", "0102"}},
        {"an unset start number counts as 1", 0, {Field(kQLFieldUserDefinedAutoIncrement, u"0000")},
         {"0001", "0002", "0003"}},
        {"both kinds, one named twice",
         100,
         {Field(kQLFieldAutoIncrement, u"00"), Field(kQLFieldCustomText, u"-"),
          Field(kQLFieldUserDefinedAutoIncrement, u"0000"), Field(kQLFieldAutoIncrement, u"0")},
         {"01-01001", "02-01012", "03-01023"}},
        {"no counter gives equal names",
         1,
         {Field(kQLFieldCustomText, u"Day1"), Field(QL::kQLFieldMetadata, u"ignored")},
         {"Day1", "Day1", "Day1"}},
    };
    for (const auto& row : cases) {
        SCOPED_TRACE(row.what);
        SetStartNumber(row.start);
        EXPECT_EQ(OutputNames(*NamedSession(row.fields, {"a.mov", "b.mov", "c.clip.MXF"})), row.names);
    }
}

TEST_F(OutputNamesTest, IngestDatesUseTheGivenTimeAndCreationDatesTheFile) {
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

TEST_F(OutputNamesTest, BaseNameIsTheClipNameOnlyWhenItDiffersFromTheFileName) {
    auto session = SessionWithClips({"A001.MOV", "A002.MOV"});
    session->SetRenamePreset(Template({Field(QL::kQLFieldFileName)}));
    const auto items = session->GetSelectedItems();
    static_cast<IGD::SelectedClipItem&>(*items[0]).SetClipName(u"A001.MOV");
    static_cast<IGD::SelectedClipItem&>(*items[1]).SetClipName(u"Interview Take 2");
    tree.MakeFolder("src/CARD_01");
    AddFolder(*session, "CARD_01/", {});
    IGD::GenerateOutputNames(*session, kIngestDate, 1);
    EXPECT_EQ(OutputNames(*session), (Strings{"A001", "Interview Take 2", "CARD_01"}));
}

TEST_F(OutputNamesTest, SessionWithoutTemplateKeepsItsNames) {
    auto session = SessionWithClips({"a.mov"});
    session->GetSelectedItems().front()->SetOutputName(u"kept");
    IGD::GenerateOutputNames(*session, kIngestDate, 1);
    EXPECT_EQ(OutputNames(*session), (Strings{"kept"}));
    session->SetRenamePreset(Template({}));
    IGD::GenerateOutputNames(*session, kIngestDate, 1);
    EXPECT_EQ(OutputNames(*session), (Strings{"kept"}));
}

TEST_F(OutputNamesTest, EachStitchingDestinationCountsOnItsOwn) {
    auto session = SessionWithClips({"a.mov", "b.mov", "c.mov"});
    session->SetRenamePreset(
        Template({Field(QL::kQLFieldFileName), Field(QL::kQLFieldCustomText, u"  _"),
                  Field(QL::kQLFieldAutoIncrement, u"00"), Field(QL::kQLFieldCustomText, u" \t")}));
    auto first = Transcode(*AddDestination(*session, "one", true), true);
    auto second = Transcode(*AddDestination(*session, "two", false), true);
    auto plain = Transcode(*AddDestination(*session, "three", false), false);
    second->concatenateName = u"Day 2";
    IGD::GenerateOutputNames(*session, kIngestDate, 1);
    EXPECT_EQ(first->concatenateName, u"Stitched  _01") << "trailing blanks are trimmed";
    EXPECT_EQ(second->concatenateName, u"Day 2  _01");
    EXPECT_EQ(plain->concatenateName, u"Stitched") << "a transcode that does not stitch keeps its name";
    EXPECT_EQ(OutputNames(*session), (Strings{"a  _01 \t", "b  _02 \t", "c  _03 \t"}))
        << "only stitched names are trimmed";
}

TEST_F(OutputNamesTest, CreationTimeIsReadFromTheFileAndMissingFilesHaveNone) {
    const time_t before = time(nullptr);
    const Fnd::WString file = tree.MakeFile("made.mov", "x");
    const auto created = IGD::ReadFileCreationTime(file);
    ASSERT_TRUE(created.has_value());
    EXPECT_GE(created->seconds, before - 1);
    EXPECT_LE(created->seconds, time(nullptr) + 1);
    EXPECT_FALSE(IGD::ReadFileCreationTime(tree.Path("missing.mov")).has_value());
}

TEST_F(OutputNamesTest, SampleShowsMasksPlaceholdersAndTheStartNumber) {
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
