#include "pipeline/naming/FileCreationTime.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <string>

namespace IGD {

std::optional<Fnd::Date> ReadFileCreationTime(Fnd::WStringView path) {
    std::string native;
    Fnd::ToUTF8(path, native);
    struct statx info {};
    // Asking for the birth time costs nothing extra; the mask says whether the filesystem had one.
    if (::statx(AT_FDCWD, native.c_str(), AT_STATX_SYNC_AS_STAT, STATX_BTIME | STATX_MTIME, &info) != 0)
        return std::nullopt;
    if ((info.stx_mask & STATX_BTIME) != 0)
        return Fnd::Date::FromSeconds(info.stx_btime.tv_sec);
    if ((info.stx_mask & STATX_MTIME) != 0)
        return Fnd::Date::FromSeconds(info.stx_mtime.tv_sec);
    return std::nullopt;
}

} // namespace IGD
