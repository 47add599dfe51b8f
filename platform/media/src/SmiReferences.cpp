#include "SmiReferences.h"

#include <fstream>
#include <string_view>

#include "CardFolder.h"

namespace Browse {
namespace {

// What ends a file name in SMIL text: markup, quotes, spaces and the separators of the folders
// before it.
bool EndsName(char c) {
    return std::string_view("<>\"'=/\\ \t\r\n").find(c) != std::string_view::npos;
}

} // namespace

std::set<std::string> ReadSmiReferences(const std::filesystem::path& smi) {
    std::set<std::string> names;
    std::ifstream in(smi, std::ios::binary);
    std::string token;
    auto take = [&] {
        if (token.find('.') != std::string::npos)
            names.insert(card::Upper(token));
        token.clear();
    };
    char buffer[16 * 1024];
    while (in.read(buffer, sizeof buffer) || in.gcount() > 0) {
        for (std::streamsize i = 0; i < in.gcount(); ++i) {
            if (EndsName(buffer[i]))
                take();
            else
                token.push_back(buffer[i]);
        }
    }
    take();
    return names;
}

} // namespace Browse
