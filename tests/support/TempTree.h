#pragma once
// A temporary folder for tests, made under $TMPDIR (else /tmp) and removed with everything in it
// when the object ends. Relative paths are UTF-8 and may name sub-folders, which are created as
// needed. Every helper answers the absolute path as a wide string, ready for the library.
//
//     igd::test::TempTree tree;
//     Fnd::WString clip = tree.MakeFile("card/A001.MOV", "frames");
//     tree.MakeFileOfSize("card/A002.MOV", 1 << 20);
//     tree.MakeFolder("empty");
//     tree.MakeSymlink("card/link", "A001.MOV");   // the link's target is taken as written
//     EXPECT_EQ(tree.Path("card/A001.MOV"), clip);
//
// Failures to create anything throw std::runtime_error naming the path and the reason.
#include <cstdint>
#include <string>
#include <string_view>

#include "Fnd/WString.h"

namespace igd::test {

class TempTree {
public:
    TempTree();
    ~TempTree();
    TempTree(const TempTree&) = delete;
    TempTree& operator=(const TempTree&) = delete;

    // Absolute path of the root (no argument) or of an entry below it; nothing is created.
    Fnd::WString Path(std::string_view relative = {}) const;
    std::string NativePath(std::string_view relative = {}) const;

    // A file with the given content, replacing one that is there.
    Fnd::WString MakeFile(std::string_view relative, std::string_view content = {});
    // A file of exactly size bytes of a repeating pattern that differs from file to file, so that
    // checksums of two such files differ. Written in chunks: large sizes cost no memory.
    Fnd::WString MakeFileOfSize(std::string_view relative, std::uint64_t size);
    // A folder and its missing parents.
    Fnd::WString MakeFolder(std::string_view relative);
    // A symbolic link at relative pointing to target, taken as written (relative or absolute).
    Fnd::WString MakeSymlink(std::string_view relative, std::string_view target);

private:
    void MakeParents(std::string_view relative) const;

    std::string root_;
};

// Every byte of a file, for comparing what was written; a file that cannot be read throws
// std::runtime_error naming it, so a missing file never reads as empty.
std::string ReadFileBytes(const std::string& path);

} // namespace igd::test
