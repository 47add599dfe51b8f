#include <filesystem>
#include <fstream>
#include <sstream>

#include <gtest/gtest.h>

#include "Fnd/AtomicFile.h"
#include "Fnd/IgdHome.h"
#include "support/TempTree.h"

namespace igd::test {

namespace {

std::string Read(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    std::ostringstream text;
    text << in.rdbuf();
    return text.str();
}

std::vector<std::string> Names(const std::string& folder) {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        names.push_back(entry.path().filename().string());
    return names;
}

// Without replace the existing file is kept byte for byte; either way no temporary is left.
TEST(AtomicFile, ReplacesContentOnlyWhenAskedAndLeavesNoTemporary) {
    TempTree tree;
    const std::string path = tree.NativePath() + "/settings.xml";
    ASSERT_TRUE(Fnd::WriteFileAtomically(path, "old"));
    EXPECT_FALSE(Fnd::WriteFileAtomically(path, "second", /*replace=*/false));
    EXPECT_EQ(Read(path), "old");
    ASSERT_TRUE(Fnd::WriteFileAtomically(path, "new content"));
    EXPECT_EQ(Read(path), "new content");
    EXPECT_EQ(Names(tree.NativePath()), std::vector<std::string>{"settings.xml"});
}

TEST(AtomicFile, MissingFolderIsAnErrorNamingThePath) {
    TempTree tree;
    const std::string path = tree.NativePath() + "/absent/file";
    try {
        Fnd::WriteFileAtomically(path, "x");
        FAIL() << "no error";
    } catch (const std::system_error& error) {
        EXPECT_NE(std::string(error.what()).find(path), std::string::npos);
    }
}

// $IGD_HOME itself, and the site file found under it, are what every suite's scoped home relies on.
TEST(IgdHome, WithoutIgdHomeTheXdgConfigFolderDecidesAndTheSiteFileIsSystemWide) {
    unsetenv("IGD_HOME");
    EXPECT_EQ(Fnd::SiteFile("ingest-settings.xml"), "/etc/igd/ingest-settings.xml");
    setenv("XDG_CONFIG_HOME", "/cfg", 1);
    EXPECT_EQ(Fnd::IgdHomeDirectory(), "/cfg/igd");
    unsetenv("XDG_CONFIG_HOME");
}

} // namespace

} // namespace igd::test
