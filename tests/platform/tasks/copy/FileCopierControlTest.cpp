#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "CopyTestFiles.h"
#include "QL/CopySetting.h"
#include "QL/Engine/FileCopier.h"
#include "support/TempTree.h"

namespace igd::test {
namespace {

using namespace QL::Engine;

constexpr std::size_t kSmallChunk = 64 * 1024;

// Pause, cancel and progress are seen through the service; here, a fault of the host's callback,
// which passes through to it after the copy has cleaned up.
TEST(FileCopierControl, AFaultInTheProgressCallbackLeavesNothingBehind) {
    TempTree tree;
    tree.MakeFileOfSize("card/A001.MOV", 20 * kSmallChunk + 10);
    const auto faulty = [](std::uint64_t done) {
        if (done >= 3 * kSmallChunk)
            throw std::runtime_error("host fault");
    };
    CopyControl control;
    EXPECT_THROW(FileCopier(kSmallChunk)
                     .CopyFile(tree.NativePath("card/A001.MOV"),
                               {{tree.NativePath("a/A001.MOV"), 0}, {tree.NativePath("b/A001.MOV"), 0}},
                               QL::IngestTask::kVerifyMD5, control, faulty),
                 std::runtime_error);
    EXPECT_TRUE(NamesIn(tree.NativePath("a")).empty());
    EXPECT_TRUE(NamesIn(tree.NativePath("b")).empty());
}

} // namespace
} // namespace igd::test
