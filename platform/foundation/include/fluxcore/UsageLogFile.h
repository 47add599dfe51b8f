#pragma once
// A usage logger that appends each event to a file as one line of JSON, for hosts that want a
// record of what their users ingest. Nothing installs one by default.
#include <memory>
#include <string>
#include <string_view>

#include "fluxcore/UsageLogger.h"

namespace fluxcore::config {

// One line per event, written when the event is sent (its last reference goes):
//   {"time":"2026-03-05T14:30:59Z","category":"Ingest","subcategory":"IngestSetting",
//    "name":"PrimaryDestSetting","extra":"","attributes":{"MetadataPreset":"MetadataPreset:Enabled",...}}
// Attributes keep the order they were added in. Each line goes to the file in one append, so a
// crash loses at most the events not yet sent and never leaves half a line behind another.
class UsageLogFile : public UsageLogger, public std::enable_shared_from_this<UsageLogFile> {
public:
    // Opens the file for appending, creating it and not its folders; throws std::system_error
    // naming the path when it cannot be opened.
    static std::shared_ptr<UsageLogFile> Open(const std::string& path);
    ~UsageLogFile() override;
    UsageLogFile(const UsageLogFile&) = delete;
    UsageLogFile& operator=(const UsageLogFile&) = delete;

    UsageEventRef NewEvent(std::string_view category, std::string_view subcategory, std::string_view name,
                           std::string_view extra) override;

    // Appends one finished line. A failed write is dropped: the report never stops an ingest.
    void AppendLine(const std::string& line);

private:
    explicit UsageLogFile(int descriptor) : descriptor_(descriptor) {}
    int descriptor_;
};

// The JSON form of a string, quotes included; control characters are escaped, UTF-8 passes.
std::string JsonQuoted(std::string_view text);

} // namespace fluxcore::config
