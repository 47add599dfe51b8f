#pragma once
// A generation file's text, written and read. Reading goes through the guarded parser: a
// history may come from any tool or card, and only what the schema defines is taken from it.
#include <optional>
#include <string>
#include <string_view>

#include "Mhl/Generation.h"

namespace Mhl {

inline constexpr char kGenerationNamespace[] = "urn:ASC:MHL:v2.0";

std::string GenerationXml(const Generation& generation);

// Nullopt, with the reason in error, for a document that is no generation.
std::optional<Generation> ReadGeneration(std::string_view bytes, std::string& error);
std::optional<Generation> ReadGenerationFile(const std::string& path, std::string& error);

} // namespace Mhl
