// Preset files (*.igdrename, *.igdmetadata) as a user installs them from anywhere.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "FuzzScratch.h"
#include "QL/PresetFileReader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const QL::PresetReadResult result =
        QL::ReadPresetFile(igd::fuzz::WriteScratchFile("input.igdrename", data, size).string());
    // Either a document or a reason a user can act on.
    if (!result && result.error.empty())
        std::abort();
    return 0;
}
