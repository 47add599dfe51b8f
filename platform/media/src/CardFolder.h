#pragma once
// Case-insensitive access to the folders of a card: cards written by cameras use upper case,
// copies made by some tools lower case, and both must read alike.
#include <filesystem>
#include <initializer_list>
#include <map>
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

// While one is alive on a thread, each folder is read once: every card family looks for its own
// structure in the same folders, and a plain folder of thousands of files was read by each. The
// outermost memo of a thread serves; the folders must not change while it lives.
class ListingMemo {
public:
    ListingMemo();
    ~ListingMemo();
    ListingMemo(const ListingMemo&) = delete;
    ListingMemo& operator=(const ListingMemo&) = delete;

    // The listing of folder: read now, or kept from before.
    const std::vector<Entry>& Listing(const fs::path& folder);
    static ListingMemo* Active();

private:
    bool owner_ = false;
    std::map<fs::path, std::vector<Entry>> listings_;
};
// The child of folder whose name equals name without regard to case.
std::optional<fs::path> Child(const fs::path& folder, std::string_view name);
std::optional<fs::path> ChildFolder(const fs::path& folder, std::string_view name);
// Follows a chain of names ("PRIVATE", "AVCHD", "BDMV").
std::optional<fs::path> Descend(const fs::path& folder, std::initializer_list<std::string_view> names);
// The folders of the card root's child named marker that belong to a family, in name order, such as
// DCIM/100GOPRO or CONTENTS/CLIPS001; wanted sees folders only.
std::vector<Entry> FamilyFolders(const Fnd::WString& cardRoot, std::string_view marker,
                                 bool (*wanted)(const Entry& folder));

// The name without its last extension, and the extension without its dot.
std::string Stem(std::string_view name);
std::string Extension(std::string_view name);

// A file (not a folder) whose extension is one of extensions, without regard to case.
bool IsFileOfType(const Entry& entry, std::initializer_list<std::string_view> extensions);

// Appends every file of folder: those of the media type first, then the others, each in name
// order. Answers how many media files it found.
std::size_t AppendMediaFirst(const fs::path& folder, std::string_view mediaExtension,
                             std::vector<Fnd::WString>& files);

} // namespace Browse::card

namespace Browse::card {

// The files of one folder by upper-case name, for lookups of many derived names at once.
class NameIndex {
public:
    NameIndex() = default;
    explicit NameIndex(const std::optional<fs::path>& folder);
    // The entry spelled name without regard to case; of two that differ only in case, the one
    // spelled exactly so, else the first in name order, as Child answers.
    std::optional<fs::path> Find(std::string_view name) const;
    std::optional<fs::path> FindFolder(std::string_view name) const;
    // Appends the file when it exists; answers whether it did.
    bool AppendIfPresent(std::string_view name, std::vector<Fnd::WString>& files) const;
    // The entries whose names start with prefix without regard to case, in name order.
    std::vector<const Entry*> WithPrefix(std::string_view prefix) const;
    const std::vector<Entry>& Entries() const { return entries_; }

private:
    const Entry* FindEntry(std::string_view name) const;

    std::vector<Entry> entries_;
    std::vector<std::string> upper_; // parallel to entries_, for binary search
    std::vector<std::size_t> order_; // entries_ by upper-case name, ties in name order
};

// The nearest ancestor of path (its parent first, at most levels up) named name without regard to
// case.
std::optional<fs::path> AncestorNamed(const fs::path& path, std::string_view name, int levels);
// The folder that holds that ancestor, which is where most families' cards start; empty when
// there is none.
Fnd::WString RootAbove(const Fnd::WString& filePath, std::string_view name, int levels);
// The parent of folder when folder is named name, else folder: the card root of a family that
// keeps its structure either at the top or under a folder such as PRIVATE.
fs::path AboveIfNamed(const fs::path& folder, std::string_view name);

} // namespace Browse::card
