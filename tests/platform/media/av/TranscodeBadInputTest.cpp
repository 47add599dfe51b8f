#include <gtest/gtest.h>

#include <filesystem>

#include "Av/ClipInfo.h"
#include "Av/Transcoder.h"
#include "TranscodeTestSupport.h"
#include "support/ScratchMount.h"
#include "support/TempTree.h"
#include "support/TestClips.h"

namespace igd::test {
namespace {

TEST(TranscodeBadInput, AFullDiskFailsItsOutputAndTheOthersGoOn) {
    TempTree tree;
    ScratchMount disk(tree.NativePath("small"), "tmpfs", "size=64k");
    if (!disk.Mounted())
        GTEST_SKIP() << disk.Why();
    const std::string source = tree.NativePath() + "/A001.mov";
    MakeTestClip(source);
    const std::string full = disk.Folder() + "/A001.mov";
    const std::string good = tree.NativePath() + "/A001.mov.out";

    const Av::TranscodeResult result =
        Av::Transcode(RequestOf({ClipOf(source)}, {{full, ProResProxy()}, {good, ProResProxy()}}));

    EXPECT_EQ(result.outputs[0].error, full + ": the disk is full");
    EXPECT_EQ(result.outputs[1].error, "");
    EXPECT_NO_THROW(Av::CheckTranscodedFile(good, ProResProxy(), result.outputs[1].expected));
}

} // namespace
} // namespace igd::test
