// Layout archives in the prop.map form.
#include <cstddef>
#include <cstdint>
#include <span>

#include "fluxui/archive/PropMapReader.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    try {
        fluxui::archive::PropMapReader::Read(std::as_bytes(std::span(data, size)));
    } catch (const fluxui::archive::PropMapError&) {
    }
    return 0;
}
