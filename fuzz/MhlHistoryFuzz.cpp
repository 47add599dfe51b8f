// ASC MHL generations and chains, as a card or drive of any origin may carry them: the same bytes
// read as both, and what a generation yields written back and read again.
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

#include "Mhl/Chain.h"
#include "Mhl/GenerationXml.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view bytes(reinterpret_cast<const char*>(data), size);
    std::string error;
    if (const auto generation = Mhl::ReadGeneration(bytes, error)) {
        try {
            const std::string written = Mhl::GenerationXml(*generation);
            if (!Mhl::ReadGeneration(written, error))
                __builtin_trap(); // what was read must survive being written again
        } catch (const std::invalid_argument&) {
            // A hash format this tool does not write; refused, not crashed on.
        }
    }
    Mhl::ReadChain(bytes, error);
    return 0;
}
