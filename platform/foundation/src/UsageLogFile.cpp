#include "fluxcore/UsageLogFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <ctime>
#include <system_error>
#include <utility>

#include "Fnd/Date.h"

namespace fluxcore::config {
namespace {

std::string UtcTimestamp(Fnd::Date date) {
    const std::time_t seconds = static_cast<std::time_t>(date.seconds);
    std::tm parts{};
    ::gmtime_r(&seconds, &parts);
    std::array<char, 32> text{};
    const std::size_t length = std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", &parts);
    return std::string(text.data(), length);
}

// The line is built as attributes arrive, so sending costs one write.
class FileUsageEvent : public UsageEvent {
public:
    FileUsageEvent(std::shared_ptr<UsageLogFile> file, std::string head)
        : file_(std::move(file)), line_(std::move(head)) {}

    ~FileUsageEvent() override {
        line_.append("}}\n");
        file_->AppendLine(line_);
    }

    void AddAttribute(std::string_view key, std::string_view value) override {
        if (hasAttributes_)
            line_.push_back(',');
        hasAttributes_ = true;
        line_.append(JsonQuoted(key)).push_back(':');
        line_.append(JsonQuoted(value));
    }

private:
    std::shared_ptr<UsageLogFile> file_;
    std::string line_;
    bool hasAttributes_ = false;
};

} // namespace

std::string JsonQuoted(std::string_view text) {
    static constexpr char kHex[] = "0123456789abcdef";
    std::string quoted;
    quoted.reserve(text.size() + 2);
    quoted.push_back('"');
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        switch (c) {
        case '"':
            quoted.append("\\\"");
            break;
        case '\\':
            quoted.append("\\\\");
            break;
        case '\n':
            quoted.append("\\n");
            break;
        case '\r':
            quoted.append("\\r");
            break;
        case '\t':
            quoted.append("\\t");
            break;
        default:
            if (byte < 0x20) {
                quoted.append("\\u00");
                quoted.push_back(kHex[byte >> 4]);
                quoted.push_back(kHex[byte & 0x0F]);
            } else {
                quoted.push_back(c);
            }
        }
    }
    quoted.push_back('"');
    return quoted;
}

std::shared_ptr<UsageLogFile> UsageLogFile::Open(const std::string& path) {
    const int descriptor = ::open(path.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0644);
    if (descriptor < 0)
        throw std::system_error(errno, std::generic_category(), "cannot open usage log " + path);
    return std::shared_ptr<UsageLogFile>(new UsageLogFile(descriptor));
}

UsageLogFile::~UsageLogFile() {
    ::close(descriptor_);
}

UsageEventRef UsageLogFile::NewEvent(std::string_view category, std::string_view subcategory,
                                     std::string_view name, std::string_view extra) {
    std::string head = "{\"time\":" + JsonQuoted(UtcTimestamp(Fnd::Date::Now()));
    head.append(",\"category\":").append(JsonQuoted(category));
    head.append(",\"subcategory\":").append(JsonQuoted(subcategory));
    head.append(",\"name\":").append(JsonQuoted(name));
    head.append(",\"extra\":").append(JsonQuoted(extra));
    head.append(",\"attributes\":{");
    // The event holds the file open, so a host may replace the logger while events are pending.
    return std::make_shared<FileUsageEvent>(shared_from_this(), std::move(head));
}

void UsageLogFile::AppendLine(const std::string& line) {
    // With O_APPEND one write lands whole at the end, even with another process appending.
    std::size_t written = 0;
    while (written < line.size()) {
        const ssize_t result = ::write(descriptor_, line.data() + written, line.size() - written);
        if (result < 0 && errno == EINTR)
            continue;
        if (result <= 0)
            return;
        written += static_cast<std::size_t>(result);
    }
}

} // namespace fluxcore::config
