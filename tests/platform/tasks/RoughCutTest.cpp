#include <gtest/gtest.h>

#include "QL/RoughCut.h"

namespace {

TEST(IsRoughCutFileExtension, EitherFormatInAnyCaseOfTheExtensionOnly) {
    EXPECT_TRUE(QL::IsRoughCutFileExtension(u"/p/cut.roughcut"));
    EXPECT_TRUE(QL::IsRoughCutFileExtension(u"/p/cut.RoughCut"));
    EXPECT_TRUE(QL::IsRoughCutFileExtension(u"/p/cut.rcut"));
    EXPECT_TRUE(QL::IsRoughCutFileExtension(u"/p/cut.RCUT"));
    EXPECT_FALSE(QL::IsRoughCutFileExtension(u"/p/cut.roughcut.mov"));
    EXPECT_FALSE(QL::IsRoughCutFileExtension(u"/p/roughcut"));
    EXPECT_FALSE(QL::IsRoughCutFileExtension(u"/p.rcut/cut"));
    EXPECT_FALSE(QL::IsRoughCutFileExtension(u"/p/cut.rcu"));
}

} // namespace
