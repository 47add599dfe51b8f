#pragma once
#include <cstdint>
#include <optional>
#include <string_view>

namespace QL::Engine {

// The kinds of task the factory submits.
enum class TaskKind : std::uint8_t { Copy, Transcode, Concatenate, Import, UpdateMetadata };

// Stable names: they are stored in the journal and printed by hosts.
std::string_view TaskKindName(TaskKind kind);
std::optional<TaskKind> TaskKindFromName(std::string_view name);

} // namespace QL::Engine
