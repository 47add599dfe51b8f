#pragma once
#include <string>
#include <string_view>

#include "QL/Engine/TaskRecord.h"

namespace QL::Engine {

// A task record as the journal stores it, with its schema name and version in front so that a
// later version can read or upgrade it. Decoding throws JournalError.
std::string EncodeTaskRecord(const TaskRecord& record);
TaskRecord DecodeTaskRecord(std::string_view bytes);

} // namespace QL::Engine
