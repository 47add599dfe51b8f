// A translation catalogue from a file, then every line of it as a text with "@0".."@9" and "^n"
// expanded: the catalogue is a file a site may edit, and the texts reach every message.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "FuzzScratch.h"
#include "fluxcore/Localizer.h"
#include "fluxcore/ZString.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    auto& localizer = fluxcore::config::Localizer::Get();
    localizer.Clear();
    localizer.LoadCatalogue(igd::fuzz::WriteScratchFile("catalogue.txt", data, size).string());

    const std::string_view text(reinterpret_cast<const char*>(data), size);
    // Arguments that look like placeholders themselves must come out as given, never expanded.
    const Fnd::WString argument = u"@1^n";
    std::size_t start = 0;
    for (int line = 0; line < 64 && start <= text.size(); ++line) {
        std::size_t end = text.find('\n', start);
        if (end == std::string_view::npos)
            end = text.size();
        const fluxcore::ZString zstring(text.substr(start, end - start));
        const Fnd::WString bare = zstring.ToWString();
        const Fnd::WString expanded = zstring.ToWString({argument, argument, argument, argument, argument,
                                                         argument, argument, argument, argument, argument});
        // Each placeholder takes two characters and gives four, so the text can only grow.
        if (expanded.size() < bare.size())
            std::abort();
        start = end + 1;
    }
    return 0;
}
