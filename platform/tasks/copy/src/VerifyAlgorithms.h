#pragma once
#include <cstddef>
#include <cstdint>
#include <string>

#include "Checksum/Checksum.h"
#include "QL/Engine/FileCopier.h"

namespace QL::Engine {

// Throws std::invalid_argument for a value that is no verify mode of the task contract.
void RequireVerifyMode(std::uint32_t verifyMode);

// The digest taken of every source: the verify mode's checksum, or xxh128 where the mode compares
// no checksum, so that the destination's manifest lists every copy at the cost of little CPU.
Checksum::Algorithm SourceDigestAlgorithm(std::uint32_t verifyMode);

// "MD5", "XXH128", ...: how a failed check names the checksum that differs.
std::string ChecksumLabel(Checksum::Algorithm algorithm);

// Why a source whose digest differs from its history's fails.
std::string HistoryMismatchReason(const ExpectedDigest& expected);

// Offset of the first byte that differs between a and b, or length when none does.
std::size_t FirstDifference(const std::byte* a, const std::byte* b, std::size_t length);

} // namespace QL::Engine
