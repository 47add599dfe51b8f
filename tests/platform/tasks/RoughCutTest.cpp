#include <gtest/gtest.h>

#include "QL/RoughCut.h"

namespace igd::test {
namespace {

TEST(IsRoughCutFileExtension, EitherFormatInAnyCaseOfTheExtensionOnly) {
    for (const char16_t* path : {u"/p/cut.roughcut", u"/p/cut.RoughCut", u"/p/cut.rcut", u"/p/cut.RCUT"})
        EXPECT_TRUE(QL::IsRoughCutFileExtension(path)) << Fnd::ToUTF8(path);
    for (const char16_t* path : {u"/p/cut.roughcut.mov", u"/p/roughcut", u"/p.rcut/cut", u"/p/cut.rcu"})
        EXPECT_FALSE(QL::IsRoughCutFileExtension(path)) << Fnd::ToUTF8(path);
}

} // namespace
} // namespace igd::test
