#pragma once
// Case-insensitive access to the folders of a card: cards written by cameras use upper case,
// copies made by some tools lower case, and both must read alike.
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "Fnd/WString.h"

namespace Browse::card {

namespace fs = std::filesystem;

std::string Upper(std::string_view text);
bool EqualsNoCase(std::string_view a, std::string_view b);
bool EndsWithNoCase(std::string_view text, std::string_view suffix);
bool StartsWithNoCase(std::string_view text, std::string_view prefix);
bool AllDigits(std::string_view text);

fs::path ToPath(const Fnd::WString& path);
Fnd::WString ToWide(const fs::path& path);

struct Entry {
    std::string name; // as on disk
    fs::path path;
    bool folder = false;
};

// The entries of a folder sorted by name (byte order); empty when it cannot be read.
std::vector<Entry> List(const fs::path& folder);
// The child of folder whose name equals name without regard to case.
std::optional<fs::path> Child(const fs::path& folder, std::string_view name);
std::optional<fs::path> ChildFolder(const fs::path& folder, std::string_view name);
// Follows a chain of names ("PRIVATE", "AVCHD", "BDMV").
std::optional<fs::path> Descend(const fs::path& folder, std::initializer_list<std::string_view> names);

// The name without its last extension, and the extension without its dot.
std::string Stem(std::string_view name);
std::string Extension(std::string_view name);

} // namespace Browse::card

namespace Browse::card {

// The files of one folder by upper-case name, for lookups of many derived names at once.
class NameIndex {
public:
    NameIndex() = default;
    explicit NameIndex(const std::optional<fs::path>& folder);
    // The file spelled name without regard to case.
    std::optional<fs::path> Find(std::string_view name) const;
    // Appends the file when it exists; answers whether it did.
    bool AppendIfPresent(std::string_view name, std::vector<Fnd::WString>& files) const;
    const std::vector<Entry>& Entries() const { return entries_; }

private:
    std::vector<Entry> entries_;
    std::vector<std::string> upper_; // parallel to entries_, for binary search
    std::vector<std::size_t> order_;
};

// The nearest ancestor of path (its parent first, at most levels up) named name without regard to
// case.
std::optional<fs::path> AncestorNamed(const fs::path& path, std::string_view name, int levels);

} // namespace Browse::card
