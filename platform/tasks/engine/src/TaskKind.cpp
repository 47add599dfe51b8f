#include "QL/Engine/TaskKind.h"

#include <array>
#include <utility>

namespace QL::Engine {
namespace {

constexpr std::array<std::pair<TaskKind, std::string_view>, 5> kNames{{
    {TaskKind::Copy, "copy"},
    {TaskKind::Transcode, "transcode"},
    {TaskKind::Concatenate, "concatenate"},
    {TaskKind::Import, "import"},
    {TaskKind::UpdateMetadata, "update-metadata"},
}};

} // namespace

std::string_view TaskKindName(TaskKind kind) {
    for (const auto& [k, name] : kNames)
        if (k == kind)
            return name;
    return "unknown";
}

std::optional<TaskKind> TaskKindFromName(std::string_view name) {
    for (const auto& [kind, n] : kNames)
        if (n == name)
            return kind;
    return std::nullopt;
}

} // namespace QL::Engine
