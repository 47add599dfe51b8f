// `igd encoders` as a script reads it.
#include <gtest/gtest.h>

#include <string>

#include "apps/igd/IgdCommand.h"

namespace igd::test {
namespace {

using EncodersCommandTest = IgdCommandTest;

TEST_F(EncodersCommandTest, JsonListsShippedThenUserPresetsAndSaysWhichEncodersAreMissing) {
    home.MakeFile("encoder-presets/mine.igdencoder",
                  "<encoderPreset version=\"1\"><name>My \"Proxy\"</name><exporter>QuickTime</exporter>"
                  "<video encoder=\"no_such_encoder\" size=\"1280x720\" frameRate=\"24000/1001\"/></encoderPreset>");
    home.MakeFile("encoder-presets/z.igdencoder", "<encoderPreset version=\"1\"><name>alpha</name><exporter>QuickTime"
                                                  "</exporter><video encoder=\"prores_ks\"/></encoderPreset>");
    home.MakeFile("encoder-presets/broken.igdencoder", "<encoderPreset version=\"1\"><name>");
    const Ran run = RunIgd({"encoders", "--json"});
    EXPECT_EQ(run.exitCode, 0) << run.err;
    // The broken file is named on stderr and the rest is listed.
    EXPECT_NE(run.err.find(home.Path() + "/encoder-presets/broken.igdencoder"), std::string::npos) << run.err;

    const std::size_t quickTime = run.out.find("{\"exporter\": \"QuickTime\", \"container\": \"mov\", \"extension\": \"mov\"");
    ASSERT_NE(quickTime, std::string::npos) << run.out;
    const std::size_t proxy = run.out.find("{\"name\": \"Apple ProRes 422 Proxy\", \"source\": \"system\"", quickTime);
    const std::size_t mine = run.out.find("{\"name\": \"My \\\"Proxy\\\"\", \"source\": \"user\", \"path\": \"" +
                                              home.Path() + "/encoder-presets/mine.igdencoder\"",
                                          quickTime);
    const std::size_t alpha = run.out.find("{\"name\": \"alpha\", \"source\": \"user\"", quickTime);
    ASSERT_NE(proxy, std::string::npos) << run.out;
    ASSERT_NE(mine, std::string::npos) << run.out;
    EXPECT_LT(proxy, alpha);
    EXPECT_LT(alpha, mine) << "user presets sorted by name, whatever their case or file name";
    const std::size_t nextExporter = run.out.find("{\"exporter\"", quickTime + 1);
    EXPECT_LT(mine, nextExporter) << "the user's preset is listed under its own exporter";

    const std::string proxyRow = run.out.substr(proxy, run.out.find('}', proxy) - proxy);
    EXPECT_NE(proxyRow.find("\"videoEncoder\": \"prores_ks\", \"encoderAvailable\": true"), std::string::npos)
        << proxyRow;
    const std::string mineRow = run.out.substr(mine, run.out.find('}', mine) - mine);
    EXPECT_NE(mineRow.find("\"encoderAvailable\": false"), std::string::npos) << mineRow;
    EXPECT_NE(mineRow.find("\"size\": \"1280x720\", \"frameRate\": \"24000/1001\""), std::string::npos) << mineRow;
    EXPECT_NE(mineRow.find("\"audioEncoder\": \"\""), std::string::npos) << mineRow;

    const Ran text = RunIgd({"encoders"});
    EXPECT_EQ(text.exitCode, 0);
    EXPECT_NE(text.out.find("My \"Proxy\"  [user]"), std::string::npos) << text.out;
    EXPECT_NE(text.out.find("(this build has no no_such_encoder)"), std::string::npos) << text.out;
}

} // namespace
} // namespace igd::test
