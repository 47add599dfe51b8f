#pragma once
// A small filesystem mounted for one test, to meet conditions a real disk gives rarely: full,
// read-only, or refusing direct I/O. Mounting needs root; without it Mounted() is false and the
// test skips with Why().
//
//     igd::test::ScratchMount disk(tree.NativePath("small"), "tmpfs", "size=1m");
//     if (!disk.Mounted()) GTEST_SKIP() << disk.Why();
#include <string>

namespace igd::test {

class ScratchMount {
public:
    // folder is created if missing; flags as for mount(2): MS_RDONLY for a read-only disk.
    ScratchMount(std::string folder, const std::string& type, const std::string& options,
                 unsigned long flags = 0);
    ~ScratchMount();
    ScratchMount(const ScratchMount&) = delete;
    ScratchMount& operator=(const ScratchMount&) = delete;

    bool Mounted() const { return mounted_; }
    const std::string& Why() const { return why_; }
    const std::string& Folder() const { return folder_; }

private:
    std::string folder_;
    bool mounted_ = false;
    std::string why_;
};

} // namespace igd::test
