#pragma once
// The layouts the library's sections bind to: each layout's root size and the controls the
// logic reaches by id, with their class and authored text. Unnamed controls and dividers may
// stand besides these.
#include <optional>
#include <string>
#include <vector>

namespace igd::test {

struct CatalogueControl {
    std::string id;
    std::string archiveClass;        // as the archive's adapter names it, without namespace
    std::optional<std::string> text; // the authored text, in the archive's form
};

struct CatalogueLayout {
    std::string name;
    float width;
    float height;
    std::vector<CatalogueControl> controls;
};

const std::vector<CatalogueLayout>& LayoutCatalogue();

// "($$$/key=Default)" gives "Default"; a literal gives itself.
std::string DefaultText(const std::string& authored);

} // namespace igd::test
