// P2 clip XML (CONTENTS/CLIP/*.XML): the user clip name and the links of a spanned shot.
#include <cstddef>
#include <cstdint>

#include "FuzzScratch.h"
#include "P2ClipXml.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string refusal;
    Browse::ReadP2ClipXml(igd::fuzz::WriteScratchFile("000001.XML", data, size), refusal);
    return 0;
}
