// The journal's record codec over bytes a damaged or foreign journal may hold. A record that
// decodes must encode again to bytes that decode to the same encoding: resume reads back what it
// wrote, so a record that changes on the way would resume a different task.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "QL/Engine/Journal.h"
#include "TaskRecordCodec.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    QL::Engine::TaskRecord record;
    try {
        record = QL::Engine::DecodeTaskRecord(bytes);
    } catch (const QL::Engine::JournalError&) {
        return 0;
    }
    const std::string encoded = QL::Engine::EncodeTaskRecord(record);
    if (QL::Engine::EncodeTaskRecord(QL::Engine::DecodeTaskRecord(encoded)) != encoded)
        std::abort();
    return 0;
}
