#pragma once
#include <filesystem>
#include <set>
#include <string>

namespace Browse {

// The names of the files an SMI text refers to, upper-cased and without their folders: a
// reference "../Clip/C0001.MXF" gives "C0001.MXF". Only names with an extension are kept. Empty
// when the file cannot be read.
std::set<std::string> ReadSmiReferences(const std::filesystem::path& smi);

} // namespace Browse
