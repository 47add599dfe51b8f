#include "SmiReferences.h"

#include <fstream>
#include <string_view>

#include "Browse/RefusedCardFiles.h"
#include "CardFolder.h"
#include "Fnd/XmlParser.h"

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
    // Read as text, so nothing in it is expanded or fetched; only its size needs a bound.
    std::error_code error;
    const std::uintmax_t size = std::filesystem::file_size(smi, error);
    if (!error && size > Fnd::kMaxCardXmlBytes) {
        RefusedCardFiles::Report(card::ToWide(smi), "it is larger than " + std::to_string(Fnd::kMaxCardXmlBytes) +
                                                        " bytes, more than a file of its kind can be");
        return names;
    }
    std::ifstream in(smi, std::ios::binary);
    std::string token;
    // No file name is longer than NAME_MAX: a longer run is no reference, and is not kept growing.
    constexpr std::size_t kLongestName = 255;
    bool tooLong = false;
    auto take = [&] {
        if (!tooLong && token.find('.') != std::string::npos)
            names.insert(card::Upper(token));
        token.clear();
        tooLong = false;
    };
    char buffer[16 * 1024];
    while (in.read(buffer, sizeof buffer) || in.gcount() > 0) {
        for (std::streamsize i = 0; i < in.gcount(); ++i) {
            if (EndsName(buffer[i]))
                take();
            else if (token.size() < kLongestName)
                token.push_back(buffer[i]);
            else
                tooLong = true;
        }
    }
    take();
    return names;
}

} // namespace Browse
