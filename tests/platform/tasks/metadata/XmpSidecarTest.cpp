#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "QL/XmpSidecarWriter.h"
#include "support/TempTree.h"

namespace igd::test {
namespace {

using QL::ReadXmpProperty;
using QL::WriteXmpSidecar;

const Fnd::WString kShoot = u"http://ns.example.com/igd/shoot/1.0/";
const Fnd::WString kPanel = u"http://ns.example.com/igd/minimum/1.0/";

std::shared_ptr<QL::MetadataFieldSet> FieldSet(const Fnd::WString& schema, const Fnd::WString& preset,
                                               std::map<Fnd::WString, Fnd::WString> values) {
    auto set = std::make_shared<QL::MetadataFieldSet>();
    set->schemaNamespace = schema;
    set->presetName = preset;
    set->values = std::move(values);
    return set;
}

// exiftool's view of a file, or nothing when exiftool is not installed.
std::optional<std::string> Exiftool(const std::string& arguments, const std::string& path) {
    if (std::system("command -v exiftool >/dev/null 2>&1") != 0)
        return std::nullopt;
    const std::string command = "exiftool " + arguments + " '" + path + "' 2>&1";
    std::unique_ptr<FILE, decltype(&::pclose)> pipe(::popen(command.c_str(), "r"), &::pclose);
    std::string output;
    std::array<char, 4096> buffer{};
    while (pipe && std::fgets(buffer.data(), buffer.size(), pipe.get()))
        output += buffer.data();
    return output;
}

class XmpSidecar : public ::testing::Test {
protected:
    std::string Sidecar() const { return tree_.NativePath("A001.xmp"); }
    Fnd::WString Read(const Fnd::WString& schema, const Fnd::WString& key) const {
        return ReadXmpProperty(Sidecar(), schema, key);
    }

    TempTree tree_;
};

TEST_F(XmpSidecar, WritesEverySetKeywordsAndReadsThemBack) {
    QL::IngestCustomData data;
    data.metadataSets.push_back(FieldSet(
        kShoot, u"Shoot Day",
        {{u"scene", u"12"}, {u"Camera Roll", u"A007"}, {u"note", u"\u00C9t\u00E9 <night> & \"rain\""}}));
    data.minimumMetadata.namespaces.push_back(FieldSet(kPanel, u"Minimum", {{u"operator", u"Jo"}}));
    data.minimumMetadata.namespaces.push_back(nullptr);
    data.minimumMetadata.keywords = {u"interview", u"Stra\u00DFe", u""};
    WriteXmpSidecar(Sidecar(), data);

    EXPECT_EQ(Read(kShoot, u"Camera Roll"), u"A007");
    EXPECT_EQ(Read(kShoot, u"note"), u"\u00C9t\u00E9 <night> & \"rain\"");
    EXPECT_EQ(Read(kPanel, u"operator"), u"Jo");
    EXPECT_EQ(Read(kShoot, u"missing"), u"");
    const std::string packet = ReadFileBytes(Sidecar());
    EXPECT_NE(packet.find("xmlns:ShootDay=\"" + Fnd::ToUTF8(kShoot) + "\""), std::string::npos) << packet;
    EXPECT_NE(packet.find("ShootDay:Camera_x0020_Roll"), std::string::npos) << packet;
    EXPECT_NE(packet.find("<rdf:li>interview</rdf:li>"), std::string::npos) << packet;
    EXPECT_EQ(packet.find("<rdf:li></rdf:li>"), std::string::npos) << "no empty keyword";
}

// A value taken from a file name may hold bytes that are no UTF-8; XML may not.
TEST_F(XmpSidecar, BytesKeptFromNamesAreWrittenAsEscapesInWellFormedUTF8) {
    QL::IngestCustomData data;
    data.metadataSets.push_back(
        FieldSet(kShoot, u"Shoot Day", {{u"clip", Fnd::FromUTF8("bad\xFF.mov")}, {u"note", u"two\nlines"}}));
    data.minimumMetadata.keywords = {Fnd::FromUTF8("\xE9t\xE9")};
    WriteXmpSidecar(Sidecar(), data);

    EXPECT_EQ(Read(kShoot, u"clip"), u"bad\\xff.mov");
    EXPECT_EQ(Read(kShoot, u"note"), u"two\nlines");
    const std::string packet = ReadFileBytes(Sidecar());
    EXPECT_EQ(Fnd::ToValidUTF8(Fnd::FromUTF8(packet)), packet) << "well-formed UTF-8";
    EXPECT_NE(packet.find("<rdf:li>\\xe9t\\xe9</rdf:li>"), std::string::npos) << packet;
}

TEST_F(XmpSidecar, MergesIntoAnExistingSidecarKeepingWhatItHolds) {
    tree_.MakeFile("A001.xmp", "<x:xmpmeta xmlns:x=\"adobe:ns:meta/\"><rdf:RDF "
                               "xmlns:rdf=\"http://www.w3.org/1999/02/22-rdf-syntax-ns#\">"
                               "<rdf:Description rdf:about=\"\" xmlns:xmp=\"http://ns.adobe.com/xap/1.0/\" "
                               "xmlns:dc=\"http://purl.org/dc/elements/1.1/\" xmlns:sh=\"" +
                                   Fnd::ToUTF8(kShoot) +
                                   "\"><xmp:Rating>4</xmp:Rating><sh:scene>1</sh:scene><sh:take>3</sh:take>"
                                   "<dc:subject><rdf:Bag><rdf:li>interview</rdf:li></rdf:Bag></dc:subject>"
                                   "</rdf:Description></rdf:RDF></x:xmpmeta>");
    QL::IngestCustomData data;
    data.metadataSets.push_back(FieldSet(kShoot, u"Shoot", {{u"scene", u"2"}, {u"camera", u"B"}}));
    data.minimumMetadata.keywords = {u"interview", u"exterior"};
    WriteXmpSidecar(Sidecar(), data);

    EXPECT_EQ(Read(u"http://ns.adobe.com/xap/1.0/", u"Rating"), u"4");
    EXPECT_EQ(Read(kShoot, u"scene"), u"2");
    EXPECT_EQ(Read(kShoot, u"take"), u"3");
    EXPECT_EQ(Read(kShoot, u"camera"), u"B");
    const std::string packet = ReadFileBytes(Sidecar());
    EXPECT_EQ(packet.find("interview"), packet.rfind("interview")) << "a keyword is never written twice";
    EXPECT_NE(packet.find("<rdf:li>exterior</rdf:li>"), std::string::npos) << packet;
}

TEST_F(XmpSidecar, EmptyValuesAreWrittenOnlyWhenAsked) {
    QL::IngestCustomData data;
    data.metadataSets.push_back(FieldSet(kShoot, u"Shoot", {{u"scene", u"1"}, {u"note", u"first"}}));
    WriteXmpSidecar(Sidecar(), data);

    data.metadataSets = {FieldSet(kShoot, u"Shoot", {{u"scene", u""}, {u"note", u""}, {u"take", u""}})};
    WriteXmpSidecar(Sidecar(), data);
    EXPECT_EQ(Read(kShoot, u"scene"), u"1") << "an empty value leaves the stored one";
    EXPECT_EQ(ReadFileBytes(Sidecar()).find(":take"), std::string::npos);

    data.minimumMetadata.storeEmptyInfo = true;
    WriteXmpSidecar(Sidecar(), data);
    EXPECT_EQ(Read(kShoot, u"scene"), u"");
    const std::string packet = ReadFileBytes(Sidecar());
    // Whatever prefix the namespace has in this process.
    EXPECT_TRUE(packet.find(":take/>") != std::string::npos || packet.find(":take></") != std::string::npos)
        << packet;
}

TEST_F(XmpSidecar, RefusesToReplaceAFileThatIsNotXmp) {
    const std::string notes = "shot list: A001 interview\n";
    tree_.MakeFile("A001.xmp", notes);
    QL::IngestCustomData data;
    data.metadataSets.push_back(FieldSet(kShoot, u"Shoot", {{u"scene", u"1"}}));
    try {
        WriteXmpSidecar(Sidecar(), data);
        ADD_FAILURE() << "a file that is not XMP was replaced";
    } catch (const QL::XmpSidecarError& error) {
        EXPECT_NE(
            std::string(error.what()).find("XMP sidecar " + Sidecar() + ": holds something other than XMP"),
            std::string::npos)
            << error.what();
    }
    EXPECT_EQ(ReadFileBytes(Sidecar()), notes);
    EXPECT_THROW(Read(kShoot, u"scene"), QL::XmpSidecarError);

    EXPECT_THROW(WriteXmpSidecar(tree_.NativePath("missing/folder/B001.xmp"), QL::IngestCustomData{}),
                 QL::XmpSidecarError);
    EXPECT_EQ(ReadXmpProperty(tree_.NativePath("absent.xmp"), kShoot, u"scene"), u"");
}

TEST_F(XmpSidecar, ExiftoolReadsTheNamespaceValuesAndKeywords) {
    // A namespace and preset of this test alone: the toolkit keeps the first prefix a namespace
    // was registered with for the rest of the process.
    QL::IngestCustomData data;
    data.metadataSets.push_back(FieldSet(u"http://ns.example.com/igd/exiftool-check/1.0/", u"Exif Check",
                                         {{u"scene", u"12"}, {u"Camera Roll", u"A007"}, {u"blank", u""}}));
    data.minimumMetadata.keywords = {u"interview", u"night"};
    data.minimumMetadata.storeEmptyInfo = true;
    WriteXmpSidecar(Sidecar(), data);
    const std::optional<std::string> output = Exiftool("-a -G1 -s -XMP:all", Sidecar());
    if (!output)
        GTEST_SKIP() << "exiftool is not installed";
    // Columns are padded to the longest name: compare with single spaces.
    std::string listing;
    for (const char c : *output)
        if (c != ' ' || listing.empty() || listing.back() != ' ')
            listing.push_back(c);
    for (const char* line : {"[XMP-ExifCheck] Scene : 12\n", "[XMP-ExifCheck] Camera_x0020_Roll : A007\n",
                             "[XMP-ExifCheck] Blank : \n", "[XMP-dc] Subject : interview, night\n"})
        EXPECT_NE(listing.find(line), std::string::npos) << "no line " << line << " in\n" << listing;
}

TEST_F(XmpSidecar, WritersOnManyThreadsDoNotDisturbEachOther) {
    const auto n = [](int t, int i) { return Fnd::ToDecimal(static_cast<std::uint64_t>(t * 100 + i)); };
    const auto schema = [](const Fnd::WString& n) { return u"http://ns.example.com/igd/t" + n + u"/"; };
    const auto file = [&](const Fnd::WString& n) { return tree_.NativePath("t" + Fnd::ToUTF8(n) + ".xmp"); };
    std::vector<std::thread> writers;
    for (int t = 0; t < 4; ++t)
        writers.emplace_back([&, t] {
            for (int i = 0; i < 25; ++i) {
                QL::IngestCustomData data;
                data.metadataSets.push_back(FieldSet(schema(n(t, i)), u"T" + n(t, i), {{u"value", n(t, i)}}));
                WriteXmpSidecar(file(n(t, i)), data);
            }
        });
    for (std::thread& writer : writers)
        writer.join();
    for (int t = 0; t < 4; ++t)
        EXPECT_EQ(ReadXmpProperty(file(n(t, 24)), schema(n(t, 24)), u"value"), n(t, 24));
}

TEST(XmpNames, KeysAndPresetNamesBecomeStableXmlNames) {
    for (const auto& [key, name] : std::vector<std::pair<Fnd::WString, std::string>>{
             {u"Camera Roll", "Camera_x0020_Roll"}, {u"1st", "_x0031_st"}, {u"a-b.c_d", "a-b.c_d"},
             {u"_x0020_", "_x005F_x0020_"}, {u"\u00E9t\u00E9", "_x00E9_t_x00E9_"}, {u"", "_"}})
        EXPECT_EQ(QL::XmpPropertyNameFor(key), name) << Fnd::ToUTF8(key);
    for (const auto& [preset, prefix] : std::vector<std::pair<Fnd::WString, std::string>>{
             {u"Shoot Day", "ShootDay"}, {u"2nd Unit", "_2ndUnit"}, {u"XMLish", "_XMLish"},
             {u"\u00DCber-Team", "berTeam"}, {u"  ", "igd"}}) {
        QL::MetadataFieldSet set;
        set.presetName = preset;
        EXPECT_EQ(QL::XmpPrefixFor(set), prefix) << Fnd::ToUTF8(preset);
    }
}

} // namespace
} // namespace igd::test
