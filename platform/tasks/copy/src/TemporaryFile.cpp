#include "TemporaryFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

#include "ErrorText.h"
#include "TargetNames.h"

namespace QL::Engine {
namespace {

// Temporaries of other copies to the same name are never touched; past this many the folder is
// full of leftovers and the copy gives up.
constexpr unsigned kMostTemporaryVariants = 1000;

} // namespace

int CreateTemporaryFor(const std::string& finalPath, std::string& temporary) {
    for (unsigned n = 0;; ++n) {
        const std::string candidate = TemporaryVariant(finalPath, n);
        const int fd = ::open(candidate.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
        if (fd >= 0) {
            temporary = candidate;
            return fd;
        }
        if (errno != EEXIST || n == kMostTemporaryVariants)
            return -errno;
    }
}

void RemoveTemporaryOf(std::string& temporary, CopyOutcome& outcome) {
    if (temporary.empty())
        return;
    if (::unlink(temporary.c_str()) != 0 && errno != ENOENT) {
        outcome.leftover = temporary;
        outcome.reason += (outcome.reason.empty() ? "" : "; ") + std::string("the partial copy ") + temporary +
                          " could not be removed: " + ErrorText(errno);
    }
    temporary.clear();
}

} // namespace QL::Engine
