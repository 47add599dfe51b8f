// `igd project` through the real binary, when the build made one beside this test.
#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

#include "Proj/Project.h"
#include "platform/project/ProjectTestSupport.h"
#include "apps/igd/IgdCommand.h"
#include "support/TempTree.h"

namespace {

using igd::test::CommandRun;

CommandRun Igd(const std::string& arguments) {
    return igd::test::RunIgd(arguments);
}

std::string ReadBytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(in), {});
}

class ProjectCommand : public ::testing::Test {
protected:
    igd::test::TempTree tree_;
};

TEST_F(ProjectCommand, InitCreatesAProjectAndTouchesNothingElse) {
    const std::string path = tree_.NativePath("shoot.igdproj");
    CommandRun run = Igd("project init " + path);
    EXPECT_EQ(run.exitCode, 0) << run.output;
    EXPECT_EQ(run.output, "created the empty project " + path + "\n");
    EXPECT_TRUE(Proj::Project::Open(path)->Items().empty());

    Proj::Project::Open(path)->ImportItem(igd::test::MakeItem(u"/card/A001.MOV"));
    run = Igd("project init " + path);
    EXPECT_EQ(run.exitCode, 0) << run.output;
    EXPECT_EQ(run.output, path + " is a project already (1 item); nothing was changed\n");

    struct Case {
        const char* file;
        const char* content;
        std::string message;
    };
    for (const Case& c : {Case{"empty", "", " exists and is not a project; it was left as it is\n"},
                          Case{"notes.txt", "A001 interview\n", "; it was left as it is\n"}}) {
        SCOPED_TRACE(c.file);
        tree_.MakeFile(c.file, c.content);
        run = Igd(std::string("project init ") + tree_.NativePath(c.file));
        EXPECT_EQ(run.exitCode, 2);
        EXPECT_TRUE(run.output.starts_with("igd: ")) << run.output;
        EXPECT_TRUE(run.output.ends_with(c.message)) << run.output;
        EXPECT_EQ(ReadBytes(tree_.NativePath(c.file)), c.content);
    }
}

TEST_F(ProjectCommand, ListShowsBinsItemsAndMetadataForPeopleAndPrograms) {
    const std::string path = tree_.NativePath("shoot.igdproj");
    {
        auto project = Proj::Project::Open(path);
        Proj::ProjectItem clip = igd::test::MakeItem(u"/card/A001.MOV", u"Day \"1\"");
        clip.name = u"Interview \u00E9t\u00E9";
        clip.clipGuid = *fluxcore::utility::Guid::FromString("38645337-a23d-4652-9c78-542163697f95");
        clip.extraPaths = {u"/card/A001.xmp"};
        clip.inPoint = 0;
        clip.metadata = {{u"http://ns.example.com/shoot/", "shoot", {{u"scene", u"12"}, {u"take", u"3"}}}};
        project->ImportItem(clip);
        project->ImportItem(igd::test::MakeItem(u"/card/A002.MOV"));
    }

    CommandRun run = Igd("project ls " + path);
    EXPECT_EQ(run.exitCode, 0) << run.output;
    EXPECT_EQ(run.output,
              "project " + path +
                  ": 2 items\n"
                  "\n(root bin)\n"
                  "  A002.MOV\n    path     /card/A002.MOV\n    format   File\n"
                  "\nbin Day \"1\"\n"
                  "  Interview \xC3\xA9t\xC3\xA9\n    path     /card/A001.MOV\n    format   File\n"
                  "    clip     {38645337-A23D-4652-9C78-542163697F95}\n"
                  "    in/out   0 / - ticks\n    extra    /card/A001.xmp\n"
                  "    shoot <http://ns.example.com/shoot/>\n      scene: 12\n      take: 3\n");

    run = Igd("project ls --json --bin 'Day \"1\"' " + path);
    EXPECT_EQ(run.exitCode, 0) << run.output;
    EXPECT_EQ(run.output,
              "{\"project\":\"" + path +
                  "\",\"bins\":[{\"name\":\"Day \\\"1\\\"\",\"items\":[{\"name\":\"Interview "
                  "\xC3\xA9t\xC3\xA9\",\"path\":\"/card/A001.MOV\",\"format\":\"File\","
                  "\"clipGuid\":\"{38645337-A23D-4652-9C78-542163697F95}\",\"inPoint\":0,"
                  "\"outPoint\":null,\"frameRate\":null,\"extraPaths\":[\"/card/A001.xmp\"],"
                  "\"metadata\":[{\"namespace\":\"http://ns.example.com/shoot/\",\"prefix\":\"shoot\","
                  "\"values\":{\"scene\":\"12\",\"take\":\"3\"}}]}]}]}\n");
}

TEST_F(ProjectCommand, ListNeverCreatesOrTakesOverAFile) {
    const std::string missing = tree_.NativePath("missing.igdproj");
    CommandRun run = Igd("project ls " + missing);
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.output, "igd: there is no project at " + missing + "\n");
    EXPECT_FALSE(std::filesystem::exists(missing));

    tree_.MakeFile("notes.txt", "A001 interview\n");
    run = Igd("project ls --json " + tree_.NativePath("notes.txt"));
    EXPECT_EQ(run.exitCode, 2);
    EXPECT_EQ(run.output, "igd: not a project file: " + tree_.NativePath("notes.txt") + "\n");
}

} // namespace
