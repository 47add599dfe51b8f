#include "ByteRecord.h"

#include <array>
#include <cstring>

#include "QL/Engine/Journal.h"

namespace QL::Engine {

void ByteRecordWriter::U32(std::uint32_t value) {
    for (int shift = 0; shift < 32; shift += 8)
        U8(static_cast<std::uint8_t>(value >> shift));
}

void ByteRecordWriter::U64(std::uint64_t value) {
    for (int shift = 0; shift < 64; shift += 8)
        U8(static_cast<std::uint8_t>(value >> shift));
}

void ByteRecordWriter::Text(std::string_view text) {
    U32(static_cast<std::uint32_t>(text.size()));
    bytes_.append(text);
}

void ByteRecordWriter::Id(const fluxcore::utility::Guid& guid) {
    for (std::uint8_t byte : guid.Bytes())
        U8(byte);
}

std::string_view ByteRecordReader::Take(std::size_t count) {
    if (bytes_.size() - offset_ < count)
        Fail("it ends early");
    const std::string_view part = bytes_.substr(offset_, count);
    offset_ += count;
    return part;
}

std::uint8_t ByteRecordReader::U8() {
    return static_cast<std::uint8_t>(Take(1)[0]);
}

std::uint32_t ByteRecordReader::U32() {
    const std::string_view part = Take(4);
    std::uint32_t value = 0;
    for (int i = 3; i >= 0; --i)
        value = (value << 8) | static_cast<std::uint8_t>(part[static_cast<std::size_t>(i)]);
    return value;
}

std::uint64_t ByteRecordReader::U64() {
    const std::string_view part = Take(8);
    std::uint64_t value = 0;
    for (int i = 7; i >= 0; --i)
        value = (value << 8) | static_cast<std::uint8_t>(part[static_cast<std::size_t>(i)]);
    return value;
}

std::string ByteRecordReader::Text() {
    const std::uint32_t size = U32();
    return std::string(Take(size));
}

fluxcore::utility::Guid ByteRecordReader::Id() {
    const std::string_view part = Take(16);
    std::array<std::uint8_t, 16> bytes{};
    std::memcpy(bytes.data(), part.data(), bytes.size());
    return fluxcore::utility::Guid(bytes);
}

void ByteRecordReader::Fail(std::string_view problem) const {
    throw JournalError(what_ + " cannot be read: " + std::string(problem));
}

} // namespace QL::Engine
