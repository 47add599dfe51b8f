// XDCAM take and edit lists (Take/*.SMI, Edit/*.SMI): the clip names they refer to.
#include <cstddef>
#include <cstdint>
#include <cstdlib>

#include "FuzzScratch.h"
#include "SmiReferences.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    for (const std::string& name : Browse::ReadSmiReferences(igd::fuzz::WriteScratchFile("T0001.SMI", data, size)))
        if (name.find('/') != std::string::npos || name.find('.') == std::string::npos)
            std::abort();
    return 0;
}
