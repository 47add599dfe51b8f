#include "Av/EncoderPresetFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <limits>

#include <xercesc/dom/DOM.hpp>

#include "Fnd/SafeXmlParser.h"

namespace Av {
namespace {

using namespace xercesc;

static_assert(std::is_same_v<XMLCh, char16_t>, "preset files assume Xerces with char16_t XMLCh");

// Larger than any camera or delivery format, small enough that width * height cannot overflow.
constexpr int kMaxDimension = 16384;

EncoderPresetReadResult Failure(std::string reason) {
    EncoderPresetReadResult result;
    result.error = std::move(reason);
    return result;
}

std::string Narrow(const XMLCh* text) {
    return text ? Fnd::ToUTF8(Fnd::WStringView(text)) : std::string();
}

std::string Trimmed(std::string text) {
    const auto first = text.find_first_not_of(" \t\r\n");
    if (first == std::string::npos)
        return {};
    const auto last = text.find_last_not_of(" \t\r\n");
    return text.substr(first, last - first + 1);
}

std::string Attribute(const DOMElement& element, const char16_t* name) {
    return Trimmed(Narrow(element.getAttribute(name)));
}

const DOMElement* Child(const DOMElement& parent, std::u16string_view tag) {
    for (const DOMElement* child = parent.getFirstElementChild(); child; child = child->getNextElementSibling())
        if (std::u16string_view(child->getTagName()) == tag)
            return child;
    return nullptr;
}

template <class Number> std::optional<Number> ParseNumber(std::string_view text) {
    Number value{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (text.empty() || error != std::errc() || end != text.data() + text.size())
        return std::nullopt;
    return value;
}

// "20000000", "20000k" or "20M"; empty: the encoder's own choice.
std::optional<std::int64_t> ParseBitRate(std::string text) {
    if (text.empty())
        return 0;
    std::int64_t scale = 1;
    if (text.back() == 'k' || text.back() == 'K')
        scale = 1000;
    else if (text.back() == 'M')
        scale = 1000000;
    if (scale != 1)
        text.pop_back();
    const auto value = ParseNumber<std::int64_t>(text);
    if (!value || *value < 0 || *value > std::numeric_limits<std::int64_t>::max() / scale)
        return std::nullopt;
    return *value * scale;
}

bool IsSource(const std::string& text) {
    return text.empty() || text == "source";
}

std::string ReadVideo(const DOMElement& video, EncoderSettings& settings) {
    settings.videoEncoder = Attribute(video, u"encoder");
    if (settings.videoEncoder.empty())
        return "names no video encoder";
    settings.profile = Attribute(video, u"profile");
    settings.pixelFormat = Attribute(video, u"pixelFormat");
    const std::string bitRate = Attribute(video, u"bitRate");
    const auto bits = ParseBitRate(bitRate);
    if (!bits)
        return "has a video bit rate of \"" + bitRate + "\" (bits per second, or with k or M)";
    settings.videoBitRate = *bits;

    const std::string size = Attribute(video, u"size");
    if (!IsSource(size)) {
        const auto x = size.find('x');
        const auto width = x == std::string::npos ? std::nullopt : ParseNumber<int>(size.substr(0, x));
        const auto height = x == std::string::npos ? std::nullopt : ParseNumber<int>(size.substr(x + 1));
        // Every chroma-subsampled format of these encoders needs even sizes.
        if (!width || !height || *width <= 0 || *height <= 0 || *width > kMaxDimension || *height > kMaxDimension ||
            *width % 2 != 0 || *height % 2 != 0)
            return "has a size of \"" + size + "\" (\"source\" or even WIDTHxHEIGHT)";
        settings.width = *width;
        settings.height = *height;
    }

    const std::string rate = Attribute(video, u"frameRate");
    if (!IsSource(rate)) {
        const auto slash = rate.find('/');
        const auto num = ParseNumber<int>(rate.substr(0, slash));
        const auto den = slash == std::string::npos ? std::optional<int>(1) : ParseNumber<int>(rate.substr(slash + 1));
        if (!num || !den || *num <= 0 || *den <= 0 || *num / *den > 1000)
            return "has a frame rate of \"" + rate + "\" (\"source\", N or N/D)";
        settings.frameRateNum = *num;
        settings.frameRateDen = *den;
    }

    for (const DOMElement* option = video.getFirstElementChild(); option; option = option->getNextElementSibling()) {
        if (std::u16string_view(option->getTagName()) != u"option")
            continue;
        const std::string name = Attribute(*option, u"name");
        if (name.empty())
            return "has a video option without a name";
        settings.videoOptions[name] = Trimmed(Narrow(option->getTextContent()));
    }
    return {};
}

std::string ReadAudio(const DOMElement& audio, EncoderSettings& settings) {
    settings.audioEncoder = Attribute(audio, u"encoder");
    if (settings.audioEncoder.empty())
        return "names no audio encoder";
    const std::string bitRate = Attribute(audio, u"bitRate");
    const auto bits = ParseBitRate(bitRate);
    if (!bits)
        return "has an audio bit rate of \"" + bitRate + "\" (bits per second, or with k or M)";
    settings.audioBitRate = *bits;
    const std::string rate = Attribute(audio, u"sampleRate");
    if (!IsSource(rate)) {
        const auto hertz = ParseNumber<int>(rate);
        if (!hertz || *hertz < 8000 || *hertz > 384000)
            return "has a sample rate of \"" + rate + "\" (\"source\" or hertz)";
        settings.audioSampleRate = *hertz;
    }
    return {};
}

EncoderPresetReadResult ReadRoot(const DOMElement& root) {
    if (std::u16string_view(root.getTagName()) != u"encoderPreset")
        return Failure("is not an encoder preset (its root element is <" + Narrow(root.getTagName()) + ">)");
    const std::string versionText = Attribute(root, u"version");
    const auto version = ParseNumber<int>(versionText);
    if (!version || *version < 1)
        return Failure("has an invalid format version (\"" + versionText + "\")");
    if (*version > kEncoderPresetVersion)
        return Failure("was written by a newer version (format " + versionText + ")");

    EncoderPresetDocument document;
    const DOMElement* name = Child(root, u"name");
    const DOMElement* exporter = Child(root, u"exporter");
    if (name)
        document.name = Fnd::FromUTF8(Trimmed(Narrow(name->getTextContent())));
    if (exporter)
        document.exporter = Fnd::FromUTF8(Trimmed(Narrow(exporter->getTextContent())));
    if (document.name.empty())
        return Failure("has no name");
    if (document.exporter.empty())
        return Failure("names no exporter");
    if (const DOMElement* order = Child(root, u"order")) {
        const std::string text = Trimmed(Narrow(order->getTextContent()));
        document.order = ParseNumber<int>(text);
        if (!document.order)
            return Failure("has an order of \"" + text + "\" (a whole number)");
    }
    const DOMElement* video = Child(root, u"video");
    if (!video)
        return Failure("has no video settings");
    if (std::string reason = ReadVideo(*video, document.settings); !reason.empty())
        return Failure(std::move(reason));
    if (const DOMElement* audio = Child(root, u"audio"))
        if (std::string reason = ReadAudio(*audio, document.settings); !reason.empty())
            return Failure(std::move(reason));
    EncoderPresetReadResult result;
    result.document = std::move(document);
    return result;
}

// Setting a parser up costs more than reading a preset; a folder of them reuses one per thread.
Fnd::SafeXmlParser& ThreadParser() {
    thread_local Fnd::SafeXmlParser parser;
    return parser;
}

} // namespace

EncoderPresetReadResult ParseEncoderPresetDocument(std::string_view bytes) {
    if (bytes.empty())
        return Failure("is empty");
    if (bytes.size() > kMaxEncoderPresetBytes)
        return Failure("is larger than any encoder preset (" + std::to_string(bytes.size()) + " bytes)");
    Fnd::SafeXmlParser& parser = ThreadParser();
    const DOMDocument* document = parser.Parse(bytes);
    if (!document)
        return Failure("is truncated or not well-formed XML (" + parser.Error() + ")");
    return ReadRoot(*document->getDocumentElement());
}

EncoderPresetReadResult ReadEncoderPresetFile(const std::string& path) {
    const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (fd < 0)
        return Failure(std::string("cannot be opened: ") + std::strerror(errno));
    struct stat info {};
    std::string bytes;
    std::string error;
    if (::fstat(fd, &info) != 0)
        error = std::string("cannot be read: ") + std::strerror(errno);
    else if (!S_ISREG(info.st_mode))
        error = "is not a regular file";
    else if (static_cast<std::uint64_t>(info.st_size) > kMaxEncoderPresetBytes)
        error = "is larger than any encoder preset (" + std::to_string(info.st_size) + " bytes)";
    else {
        // One byte more than allowed, so that a file that grew while being read is still refused.
        bytes.resize(kMaxEncoderPresetBytes + 1);
        std::size_t done = 0;
        while (done < bytes.size()) {
            const ssize_t got = ::read(fd, bytes.data() + done, bytes.size() - done);
            if (got < 0 && errno == EINTR)
                continue;
            if (got < 0) {
                error = std::string("cannot be read: ") + std::strerror(errno);
                break;
            }
            if (got == 0)
                break;
            done += static_cast<std::size_t>(got);
        }
        bytes.resize(done);
    }
    ::close(fd);
    if (!error.empty())
        return Failure(std::move(error));
    return ParseEncoderPresetDocument(bytes);
}

} // namespace Av
