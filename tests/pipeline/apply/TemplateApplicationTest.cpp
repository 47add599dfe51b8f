#include <gtest/gtest.h>

#include <set>
#include <string>
#include <vector>

#include "IGD/IngestDestination.h"
#include "QL/PresetFieldFactory.h"
#include "QL/PresetObject.h"
#include "fluxmetadata/DynamicSchema.h"
#include "pipeline/apply/ApplyFlags.h"
#include "pipeline/session/IngestDialogData.h"
#include "pipeline/apply/MetadataFieldSetBuilder.h"

namespace IGD {
namespace {

Fnd::InterfaceRef<QL::IQLPresetField> MetadataField(std::u16string_view key, std::u16string_view value) {
    auto field = QL::CreatePresetField(QL::kQLFieldMetadata);
    field->SetKey(Fnd::WString(key));
    field->SetValue(Fnd::WString(value));
    return field;
}

PresetRef Preset(QL::_QLPresetCategory category, std::u16string_view name,
                 const QL::PresetFieldList& fields) {
    return PresetRef(QL::PresetObject::Create(category, Fnd::WString(name), fields).get());
}

PresetRef RenameWithFields() {
    return Preset(QL::kQLPresetCategoryRename, u"Day", {QL::CreatePresetField(QL::kQLFieldFileName)});
}

PresetRef MetadataWithFields() {
    return Preset(QL::kQLPresetCategoryMetadata, u"Production", {MetadataField(u"scene", u"1")});
}

// One row: what the session holds, and what the primary and a backup then apply.
struct ApplyCase {
    const char* what;
    bool renameEnabled;
    PresetRef renamePreset;
    std::uint32_t renameScope;
    bool metadataEnabled;
    PresetRef metadataPreset;
    std::uint32_t metadataScope;
    bool primaryRename, primaryMetadata, backupRename, backupMetadata;
};

TEST(ComputeApplyFlags, DecidesPerDestinationFromEnableFlagsPresetsAndScopes) {
    const PresetRef emptyRename = Preset(QL::kQLPresetCategoryRename, u"Empty", {});
    const ApplyCase cases[] = {
        {"both on, all destinations", true, RenameWithFields(), 0, true, MetadataWithFields(), 0, true, true,
         true, true},
        {"primary only scopes", true, RenameWithFields(), 1, true, MetadataWithFields(), 1, true, true, false,
         false},
        {"rename scope only", true, RenameWithFields(), 1, true, MetadataWithFields(), 0, true, true, false,
         true},
        {"a rename preset without fields is off", true, emptyRename, 0, false, nullptr, 0, false, false,
         false, false},
        {"enabled without preset", true, nullptr, 0, true, nullptr, 0, false, false, false, false},
        {"preset without enable", false, RenameWithFields(), 0, false, MetadataWithFields(), 0, false, false,
         false, false},
        {"scope other than 0 or 1", true, RenameWithFields(), 7, true, MetadataWithFields(), 0, true, true,
         false, true},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.what);
        IngestDialogData session;
        session.SetRenameEnabled(c.renameEnabled);
        session.SetRenamePreset(c.renamePreset);
        session.SetRenameApplyScope(c.renameScope);
        session.SetMetadataEnabled(c.metadataEnabled);
        session.SetMetadataPreset(c.metadataPreset);
        session.SetMetadataApplyScope(c.metadataScope);
        IngestDestinationRef backup(new IngestDestination), primary(new IngestDestination);
        primary->SetPrimary(true);
        // Stale flags from an earlier run must be replaced, not kept.
        for (const auto& destination : {backup, primary}) {
            destination->SetApplyRename(true);
            destination->SetApplyMetadata(true);
        }
        session.AddDestination(backup);
        session.AddDestination(primary);

        ComputeApplyFlags(session);
        EXPECT_EQ(primary->IsApplyRename(), c.primaryRename);
        EXPECT_EQ(primary->IsApplyMetadata(), c.primaryMetadata);
        EXPECT_EQ(backup->IsApplyRename(), c.backupRename);
        EXPECT_EQ(backup->IsApplyMetadata(), c.backupMetadata);
    }
}

QL::IngestCustomData DataWithAStaleSet() {
    QL::IngestCustomData data;
    auto stale = std::make_shared<QL::MetadataFieldSet>();
    stale->presetName = u"stale";
    data.metadataSets.push_back(stale);
    data.minimumMetadata.keywords.insert(u"panel answer");
    return data;
}

TEST(BuildMetadataFieldSet, ANullOrEmptyPresetLeavesNoSetButKeepsThePanelsAnswer) {
    for (const PresetRef& preset : {PresetRef(), Preset(QL::kQLPresetCategoryMetadata, u"Empty", {})}) {
        QL::IngestCustomData data = DataWithAStaleSet();
        BuildMetadataFieldSet(preset, data);
        EXPECT_TRUE(data.metadataSets.empty());
        EXPECT_EQ(data.minimumMetadata.keywords.count(u"panel answer"), 1u);
    }
}

TEST(BuildMetadataFieldSet, OneSetOfTypedValuesUnderTheNamesSchemaWithTheLaterDuplicateWinning) {
    auto scene = MetadataField(u"scene", u"");
    scene->SetFormat(u"default scene");
    scene->SetValue(u"14B"); // typed for this ingest: the value counts, not the preset's default
    const PresetRef preset = Preset(QL::kQLPresetCategoryMetadata, u"Production",
                                    {scene, MetadataField(u"take", u"1"),
                                     MetadataField(u"Take", u"case differs"), MetadataField(u"take", u"3")});
    QL::IngestCustomData data = DataWithAStaleSet();
    BuildMetadataFieldSet(preset, data);

    ASSERT_EQ(data.metadataSets.size(), 1u);
    const QL::MetadataFieldSet& set = *data.metadataSets.front();
    EXPECT_EQ(set.presetName, u"Production");
    EXPECT_EQ(set.schemaNamespace, Fnd::FromUTF8(fluxmetadata::MakeDynamicSchemaNamespace("Production")));
    const std::map<Fnd::WString, Fnd::WString> expected{
        {u"scene", u"14B"}, {u"take", u"3"}, {u"Take", u"case differs"}};
    EXPECT_EQ(set.values, expected);
}

TEST(MakeDynamicSchemaNamespace, IsAStableUriUniquePerName) {
    const std::vector<std::string> names{"Production", "production", "Rights",     "a b", "a%20b",
                                         "a_b",        "",           ".",          "..",  "日本",
                                         "a/b",        "a:b",        "Production "};
    std::set<std::string> seen;
    for (const auto& name : names) {
        const std::string uri = fluxmetadata::MakeDynamicSchemaNamespace(name);
        EXPECT_EQ(uri, fluxmetadata::MakeDynamicSchemaNamespace(name));
        EXPECT_TRUE(seen.insert(uri).second)
            << "\"" << name << "\" gives a namespace another name has: " << uri;
        EXPECT_EQ(uri.rfind("http://", 0), 0u) << uri;
        EXPECT_EQ(uri.back(), '/') << uri;
        for (unsigned char c : uri)
            EXPECT_TRUE(std::isalnum(c) ||
                        std::string_view(":/.-_%").find(static_cast<char>(c)) != std::string_view::npos)
                << "\"" << name << "\" gives " << uri;
    }
    EXPECT_EQ(fluxmetadata::MakeDynamicSchemaNamespace("Production"),
              "http://ns.igd.local/dynamic-schema/1.0/Production/");
}

} // namespace
} // namespace IGD
