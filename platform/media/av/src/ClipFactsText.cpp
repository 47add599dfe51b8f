#include "ClipFactsText.h"

#include <charconv>
#include <cstdio>
#include <map>
#include <sstream>

namespace Av {
namespace {

template <typename Number>
bool ParseNumber(const std::string& text, Number& number) {
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size();
}

} // namespace

std::string ClipFactsText(const Mid::ClipFacts& facts) {
    char duration[32];
    // Round-trips a double exactly.
    std::snprintf(duration, sizeof duration, "%.17g", facts.durationSeconds);
    std::ostringstream text;
    text << "duration=" << duration << "\nframes=" << facts.frameCount << "\nrate=" << facts.frameRateNum << "/"
         << facts.frameRateDen << "\nsize=" << facts.width << "x" << facts.height << "\nvideo=" << facts.videoCodec
         << "\naudio=" << facts.audioCodec << "\nchannels=" << facts.audioChannels
         << "\ntimecode=" << facts.startTimecode << "\n";
    return text.str();
}

std::optional<Mid::ClipFacts> ClipFactsFromText(const std::string& text) {
    std::map<std::string, std::string> values;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        const std::size_t equals = line.find('=');
        if (equals == std::string::npos)
            return std::nullopt;
        values[line.substr(0, equals)] = line.substr(equals + 1);
    }
    if (values.size() != 8)
        return std::nullopt;
    Mid::ClipFacts facts;
    const std::string& rate = values["rate"];
    const std::string& size = values["size"];
    const std::size_t slash = rate.find('/');
    const std::size_t cross = size.find('x');
    if (slash == std::string::npos || cross == std::string::npos ||
        !ParseNumber(rate.substr(0, slash), facts.frameRateNum) ||
        !ParseNumber(rate.substr(slash + 1), facts.frameRateDen) || !ParseNumber(size.substr(0, cross), facts.width) ||
        !ParseNumber(size.substr(cross + 1), facts.height) || !ParseNumber(values["frames"], facts.frameCount) ||
        !ParseNumber(values["channels"], facts.audioChannels))
        return std::nullopt;
    try {
        std::size_t used = 0;
        facts.durationSeconds = std::stod(values["duration"], &used);
        if (used != values["duration"].size())
            return std::nullopt;
    } catch (const std::exception&) {
        return std::nullopt;
    }
    facts.videoCodec = values["video"];
    facts.audioCodec = values["audio"];
    facts.startTimecode = values["timecode"];
    return facts;
}

} // namespace Av
