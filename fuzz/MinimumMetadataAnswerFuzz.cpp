// A minimum-metadata panel's answer, as any panel on the bus may send it: whatever the bytes, the
// reader never crashes and never leaves a hole in the namespace list, and a status passes only
// when the document names one.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "panels/MinimumMetadataAnswer.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Fnd::WString answer = Fnd::FromUTF8(std::string_view(reinterpret_cast<const char*>(data), size));
    if (IGD::IsMinimumMetadataAnswerOK(answer)) {
        const std::string_view text(reinterpret_cast<const char*>(data), size);
        if (text.find("status") == std::string_view::npos)
            std::abort();
    }
    QL::MinimumMetadataResult result;
    IGD::ReadMinimumMetadataAnswer(answer, result);
    for (const auto& set : result.namespaces)
        if (!set)
            std::abort();
    return 0;
}
