#include "support/ScratchMount.h"

#include <sys/mount.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <utility>

namespace igd::test {

ScratchMount::ScratchMount(std::string folder, const std::string& type, const std::string& options,
                           unsigned long flags)
    : folder_(std::move(folder)) {
    std::error_code error;
    std::filesystem::create_directories(folder_, error);
    if (::mount("igd-test", folder_.c_str(), type.c_str(), flags, options.c_str()) == 0)
        mounted_ = true;
    else
        why_ = "cannot mount " + type + " (" + std::strerror(errno) + ")";
}

ScratchMount::~ScratchMount() {
    if (mounted_)
        ::umount2(folder_.c_str(), MNT_DETACH);
}

} // namespace igd::test
