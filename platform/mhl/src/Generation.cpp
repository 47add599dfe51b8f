#include "Mhl/Generation.h"

#include <unistd.h>

#include <climits>
#include <ctime>

namespace Mhl {

std::string UtcDateTime(std::int64_t secondsSince1970) {
    const std::time_t seconds = static_cast<std::time_t>(secondsSince1970);
    std::tm utc{};
    gmtime_r(&seconds, &utc);
    char text[32];
    std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &utc);
    return text;
}

Generation NewGeneration(const std::string& processType, std::int64_t startedAt, std::int64_t finishedAt) {
    Generation generation;
    char host[HOST_NAME_MAX + 1] = {};
    if (::gethostname(host, sizeof host - 1) != 0 || host[0] == '\0')
        std::snprintf(host, sizeof host, "localhost");
    generation.hostname = host;
    generation.tool = "igd";
    generation.toolVersion = IGD_VERSION;
    generation.processType = processType;
    // The schema has one creation date; the span of the work it records goes in the comment.
    generation.creationDate = UtcDateTime(startedAt);
    generation.comment = "started " + UtcDateTime(startedAt) + ", finished " + UtcDateTime(finishedAt);
    return generation;
}

} // namespace Mhl
