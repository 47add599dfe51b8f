#include <gtest/gtest.h>

#include "Fnd/NullInterfaceException.h"
#include "PresetTestSupport.h"
#include "QL/PresetObject.h"

namespace igd::test {
namespace {

using namespace QL;

Fnd::InterfaceRef<PresetObject> SavedLookingPreset() {
    auto preset = PresetObject::Create(
        kQLPresetCategoryMetadata, u"Production",
        {Field(kQLFieldMetadata, u"", u"scene", true), Field(kQLFieldMetadata, u"Kim", u"director")});
    preset->SetPath(u"/home/u/.config/igd/presets/metadata/Production.igdmetadata");
    preset->SetUserPreset(false);
    return preset;
}

TEST(PresetClone, AnswersTheSameNamePathAndOwnershipWithAnIdentityOfItsOwn) {
    auto source = SavedLookingPreset();
    auto copy = source->ClonePreset(false);
    EXPECT_EQ(copy->GetName(true), source->GetName(true));
    EXPECT_EQ(copy->GetPath(), source->GetPath());
    EXPECT_EQ(copy->IsUserPreset(), source->IsUserPreset());
    EXPECT_NE(copy->GetPresetID(), source->GetPresetID());
    EXPECT_EQ(source->ClonePreset(true)->GetPresetID(), source->GetPresetID());
}

TEST(PresetClone, IsDeepChangingTheCopyLeavesTheSourceAlone) {
    auto source = SavedLookingPreset();
    auto copy = source->ClonePreset(false);
    const auto copyFields = copy->GetFields();
    ASSERT_EQ(copyFields.size(), 2u);
    EXPECT_NE(copyFields[0].get(), source->GetFields()[0].get());

    copyFields[0]->SetKey(u"take");
    copyFields[1]->SetFormat(u"Lee");
    copyFields[1]->SetValue(u"typed");
    copy->SetName(u"Other");
    copy->SetFields({});

    const auto sourceFields = source->GetFields();
    ASSERT_EQ(sourceFields.size(), 2u);
    EXPECT_EQ(sourceFields[0]->GetKey(), u"scene");
    EXPECT_TRUE(sourceFields[0]->GetRequired());
    EXPECT_EQ(sourceFields[1]->GetFormat(), u"Kim");
    EXPECT_EQ(sourceFields[1]->GetValue(), u"Kim");
    EXPECT_EQ(source->GetName(true), u"Production");
}

TEST(PresetFields, ANullFieldIsAProgrammingFaultAndLeavesTheListAsItWas) {
    auto preset = SavedLookingPreset();
    EXPECT_THROW(preset->SetFields({Field(kQLFieldMetadata, u"a", u"k"), nullptr}),
                 Fnd::NullInterfaceException);
    EXPECT_EQ(preset->GetFields().size(), 2u);
}

TEST(PresetIdentity, DiffersBetweenPresetsAndFollowsThePathForFilePresets) {
    auto a = PresetObject::Create(kQLPresetCategoryRename);
    auto b = PresetObject::Create(kQLPresetCategoryRename);
    EXPECT_NE(a->GetPresetID(), b->GetPresetID());

    const Fnd::WString path = u"/p/rename/Day.igdrename";
    EXPECT_EQ(PresetObject::IdentityForPath(path), PresetObject::IdentityForPath(Fnd::WString(path)));
    EXPECT_NE(PresetObject::IdentityForPath(path), PresetObject::IdentityForPath(u"/p/rename/day.igdrename"));
    // Identities of file presets and of presets made in memory are drawn from separate ranges.
    EXPECT_NE(PresetObject::IdentityForPath(path) >> 63, a->GetPresetID() >> 63);
}

} // namespace
} // namespace igd::test
