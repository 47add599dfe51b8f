#pragma once
// A plain little-endian byte format for the records the journal keeps: fixed-width numbers and
// length-prefixed UTF-8 strings.
#include <cstdint>
#include <string>
#include <string_view>

#include "Fnd/WString.h"
#include "fluxcore/Guid.h"

namespace QL::Engine {

class ByteRecordWriter {
public:
    void U8(std::uint8_t value) { bytes_.push_back(static_cast<char>(value)); }
    void Bool(bool value) { U8(value ? 1 : 0); }
    void U32(std::uint32_t value);
    void U64(std::uint64_t value);
    void I64(std::int64_t value) { U64(static_cast<std::uint64_t>(value)); }
    void I32(std::int32_t value) { U32(static_cast<std::uint32_t>(value)); }
    void Text(std::string_view text);
    void Wide(Fnd::WStringView text) { Text(Fnd::ToUTF8(text)); }
    void Id(const fluxcore::utility::Guid& guid);

    const std::string& Bytes() const { return bytes_; }

private:
    std::string bytes_;
};

// Throws the error given at construction, naming what was being read, when the bytes end early.
class ByteRecordReader {
public:
    ByteRecordReader(std::string_view bytes, std::string what) : bytes_(bytes), what_(std::move(what)) {}

    std::uint8_t U8();
    bool Bool() { return U8() != 0; }
    std::uint32_t U32();
    std::uint64_t U64();
    std::int64_t I64() { return static_cast<std::int64_t>(U64()); }
    std::int32_t I32() { return static_cast<std::int32_t>(U32()); }
    std::string Text();
    Fnd::WString Wide() { return Fnd::FromUTF8(Text()); }
    fluxcore::utility::Guid Id();
    bool AtEnd() const { return offset_ == bytes_.size(); }

    [[noreturn]] void Fail(std::string_view problem) const;

private:
    std::string_view Take(std::size_t count);

    std::string_view bytes_;
    std::size_t offset_ = 0;
    std::string what_;
};

} // namespace QL::Engine
