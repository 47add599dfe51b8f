// `igd project` as a user runs it: it makes and lists projects and never takes over another file.
#include <gtest/gtest.h>

#include <string>

#include "Proj/Project.h"
#include "apps/igd/IgdCommand.h"
#include "platform/project/ProjectTestSupport.h"

namespace igd::test {
namespace {

using ProjectCommandTest = IgdCommandTest;

TEST_F(ProjectCommandTest, InitCreatesAProjectAndTouchesNothingElse) {
    const std::string path = Native("shoot.igdproj");
    Ran run = RunIgd({"project", "init", path});
    EXPECT_EQ(run.exitCode, 0) << run.err;
    EXPECT_EQ(run.out, "created the empty project " + path + "\n");
    EXPECT_TRUE(Proj::Project::Open(path)->Items().empty());

    Proj::Project::Open(path)->ImportItem(MakeItem(u"/card/A001.MOV"));
    run = RunIgd({"project", "init", path});
    EXPECT_EQ(run.exitCode, 0) << run.err;
    EXPECT_EQ(run.out, path + " is a project already (1 item); nothing was changed\n");

    for (const auto& [file, content, message] :
         {std::tuple<std::string, std::string, std::string>{
              "empty", "", " exists and is not a project; it was left as it is\n"},
          {"notes.txt", "A001 interview\n", "; it was left as it is\n"}}) {
        SCOPED_TRACE(file);
        tree.MakeFile(file, content);
        run = RunIgd({"project", "init", Native(file)});
        EXPECT_EQ(run.exitCode, 2);
        EXPECT_TRUE(run.err.starts_with("igd: ")) << run.err;
        EXPECT_TRUE(run.err.ends_with(message)) << run.err;
        EXPECT_EQ(ReadFileBytes(Native(file)), content);
    }
}

TEST_F(ProjectCommandTest, ListShowsBinsItemsAndMetadataForPeopleAndPrograms) {
    const std::string path = Native("shoot.igdproj");
    {
        auto project = Proj::Project::Open(path);
        Proj::ProjectItem clip = MakeItem(u"/card/A001.MOV", u"Day \"1\"");
        clip.name = u"Interview \u00E9t\u00E9";
        clip.clipGuid = *fluxcore::utility::Guid::FromString("38645337-a23d-4652-9c78-542163697f95");
        clip.extraPaths = {u"/card/A001.xmp"};
        clip.inPoint = 0;
        clip.metadata = {{u"http://ns.example.com/shoot/", "shoot", {{u"scene", u"12"}, {u"take", u"3"}}}};
        clip.digests = {{u"/card/A001.MOV", "xxh128", "99aa06d3014798d86001c324468d497f"}};
        project->ImportItem(clip);
        project->ImportItem(MakeItem(u"/card/A002.MOV"));
    }

    Ran run = RunIgd({"project", "ls", path});
    EXPECT_EQ(run.exitCode, 0) << run.err;
    EXPECT_EQ(run.out,
              "project " + path +
                  ": 2 items\n"
                  "\n(root bin)\n"
                  "  A002.MOV\n    path     /card/A002.MOV\n    format   File\n"
                  "\nbin Day \"1\"\n"
                  "  Interview \xC3\xA9t\xC3\xA9\n    path     /card/A001.MOV\n    format   File\n"
                  "    clip     {38645337-A23D-4652-9C78-542163697F95}\n"
                  "    in/out   0 / - ticks\n    extra    /card/A001.xmp\n"
                  "    shoot <http://ns.example.com/shoot/>\n      scene: 12\n      take: 3\n"
                  "    xxh128   99aa06d3014798d86001c324468d497f  /card/A001.MOV\n");

    run = RunIgd({"project", "ls", "--json", "--bin", "Day \"1\"", path});
    EXPECT_EQ(run.exitCode, 0) << run.err;
    EXPECT_EQ(run.out,
              "{\"project\":\"" + path +
                  "\",\"bins\":[{\"name\":\"Day \\\"1\\\"\",\"items\":[{\"name\":\"Interview "
                  "\xC3\xA9t\xC3\xA9\",\"path\":\"/card/A001.MOV\",\"format\":\"File\","
                  "\"clipGuid\":\"{38645337-A23D-4652-9C78-542163697F95}\",\"inPoint\":0,"
                  "\"outPoint\":null,\"frameRate\":null,\"extraPaths\":[\"/card/A001.xmp\"],"
                  "\"metadata\":[{\"namespace\":\"http://ns.example.com/shoot/\",\"prefix\":\"shoot\","
                  "\"values\":{\"scene\":\"12\",\"take\":\"3\"}}],\"digests\":[{\"path\":\"/card/A001.MOV\","
                  "\"algorithm\":\"xxh128\",\"digest\":\"99aa06d3014798d86001c324468d497f\"}]}]}]}\n");
}

} // namespace
} // namespace igd::test
