// The file type list: the filter string, the All Supported Media row, and choosing the row that
// fits a file name.
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "IGD/WinCommonFileDialogWrapper.h"
#include "Plug/ImportableFileTypeUtils.h"
#include "tests/filedialogs/ScriptedFileDialog.h"

namespace igd::test {
namespace {

using namespace std::string_literals;
using Row = ScriptedFileDialog::Row;

const Fnd::WString kAllSupportedMedia = u"All Supported Media";

// Whether a pattern such as "*.mov;*.mp4" lists the item.
bool Lists(const Fnd::WString& pattern, const Fnd::WString& item) {
    return (u";" + pattern + u";").find(u";" + item + u";") != Fnd::WString::npos;
}

// Removes what a test provider registered, even when the test fails half-way.
class TestProvider {
public:
    TestProvider(Plug::ImportableFileType type, std::vector<Fnd::WString> extensions) {
        Plug::ImportableFileTypeUtils::RegisterProviderExtensions(kName, type, extensions);
    }
    ~TestProvider() { Plug::ImportableFileTypeUtils::UnregisterProvider(kName); }
    static constexpr const char* kName = "FileDialogTestProvider";
};

class FileTypes : public ::testing::Test {
protected:
    // A wrapper on a fresh dialog, given the filter.
    void Use(const Fnd::WString& filter, bool allMedia) {
        dialog = std::make_shared<ScriptedFileDialog>();
        wrapper.SetFileDialog(dialog);
        wrapper.SetFileTypes(filter, allMedia);
    }

    std::shared_ptr<ScriptedFileDialog> dialog;
    IGD::WinCommonFileDialogWrapper wrapper;
};

struct FilterCase {
    const char* label;
    Fnd::WString filter;
    std::vector<Row> rows;
};

// Plain filters are seen through AskOpenFile; here, the malformed ones.
TEST_F(FileTypes, FilterStringBecomesRowsInOrder) {
    const std::vector<FilterCase> cases = {
        {"doubled NUL", u"Movies\0\0*.mov\0\0Audio\0*.wav"s, {{u"Movies", u"*.mov"}, {u"Audio", u"*.wav"}}},
        {"name without pattern", u"Movies\0*.mov\0Orphan"s, {{u"Movies", u"*.mov"}}},
        {"empty", u""s, {}},
        {"only a name", u"Orphan"s, {}},
    };
    for (const FilterCase& c : cases) {
        SCOPED_TRACE(c.label);
        Use(c.filter, false);
        EXPECT_EQ(dialog->rows, c.rows);
    }
}

TEST_F(FileTypes, AllSupportedMediaRowComesFirstAndListsWhatProvidersImportNow) {
    {
        TestProvider provider(Plug::kImportableFileTypeVideo, {u"*", u"*.ZZQ", u".zzr", u"zzs"});
        Use(u"Movies\0*.mov"s, true);
        ASSERT_EQ(dialog->rows.size(), 2u);
        EXPECT_EQ(dialog->rows[0].first, kAllSupportedMedia);
        EXPECT_EQ(dialog->rows[1], (Row{u"Movies", u"*.mov"}));
        const Fnd::WString& all = dialog->rows[0].second;
        for (const Fnd::WString expected :
             {u"*.mov", u"*.mxf", u"*.braw", u"*.wav", u"*.jpg", u"*.zzq", u"*.zzr", u"*.zzs"})
            EXPECT_TRUE(Lists(all, expected)) << Fnd::ToUTF8(expected);
        for (const Fnd::WString unwanted : {u"*", u"*.*", u""})
            EXPECT_FALSE(Lists(all, unwanted)) << Fnd::ToUTF8(unwanted);
    }
    Use(u""s, true);
    EXPECT_FALSE(Lists(dialog->rows[0].second, u"*.zzq")) << "the provider has gone";
    EXPECT_TRUE(Lists(dialog->rows[0].second, u"*.mov"));
}

struct SelectCase {
    const char* label;
    Fnd::WString filter;
    bool allMedia;
    Fnd::WString extension;
    unsigned selectedBefore;
    unsigned expectedIndex;
    bool expectedChanged;
};

TEST_F(FileTypes, SelectExtensionChoosesTheRowThatListsIt) {
    const Fnd::WString three = u"Movies\0*.mov;*.mp4\0MXF\0*.mxf\0Audio\0*.wav;*.aif"s;
    const std::vector<SelectCase> cases = {
        {"one row, any extension", u"Movies\0*.mov"s, false, u"wav", 1, 1, false},
        {"only the all media row", u""s, true, u"mov", 1, 1, false},
        {"upper-case MXF after the all media row", three, true, u"MXF", 1, 3, true},
        {"second item of a pattern", three, false, u"mp4", 3, 1, true},
        {"all media row is passed over", three, true, u"wav", 1, 4, true},
        {"no match falls back to row 1", three, false, u"txt", 2, 1, true},
        {"the row already selected", three, false, u"aif", 3, 3, false},
        {"no extension", three, true, u"", 2, 1, true},
        {"the first row that lists it wins", u"Movies\0*.mov\0Everything\0*.mov;*.wav"s, false, u"mov", 2, 1,
         true},
    };
    for (const SelectCase& c : cases) {
        SCOPED_TRACE(c.label);
        Use(c.filter, c.allMedia);
        dialog->typeIndex = c.selectedBefore;
        EXPECT_EQ(wrapper.SelectExtension(c.extension), c.expectedChanged);
        EXPECT_EQ(dialog->typeIndex, c.expectedIndex);
    }
}

} // namespace
} // namespace igd::test
