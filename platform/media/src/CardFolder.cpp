#include "CardFolder.h"

#include <algorithm>
#include <system_error>

namespace Browse::card {

namespace {

// The extension of a name as a view of it, so that a type check allocates nothing.
std::string_view ExtensionOf(std::string_view name) {
    const std::size_t dot = name.rfind('.');
    return dot == std::string_view::npos || dot == 0 ? std::string_view() : name.substr(dot + 1);
}

} // namespace

std::string Upper(std::string_view text) {
    std::string out(text);
    for (char& c : out)
        if (c >= 'a' && c <= 'z')
            c = static_cast<char>(c - 'a' + 'A');
    return out;
}

bool EqualsNoCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size())
        return false;
    auto upper = [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; };
    for (std::size_t i = 0; i < a.size(); ++i)
        if (upper(a[i]) != upper(b[i]))
            return false;
    return true;
}

bool EndsWithNoCase(std::string_view text, std::string_view suffix) {
    return text.size() >= suffix.size() && EqualsNoCase(text.substr(text.size() - suffix.size()), suffix);
}

bool StartsWithNoCase(std::string_view text, std::string_view prefix) {
    return text.size() >= prefix.size() && EqualsNoCase(text.substr(0, prefix.size()), prefix);
}

bool AllDigits(std::string_view text) {
    return !text.empty() &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= '0' && c <= '9'; });
}

fs::path ToPath(const Fnd::WString& path) {
    return fs::path(Fnd::ToUTF8(path));
}

Fnd::WString ToWide(const fs::path& path) {
    return Fnd::FromUTF8(path.string());
}

namespace {

thread_local ListingMemo* t_memo = nullptr;

std::vector<Entry> ReadFolder(const fs::path& folder) {
    std::vector<Entry> entries;
    std::error_code error;
    fs::directory_iterator it(folder, error);
    if (error)
        return entries;
    for (; it != fs::directory_iterator(); it.increment(error)) {
        if (error)
            break;
        std::error_code kindError;
        entries.push_back({it->path().filename().string(), it->path(), it->is_directory(kindError)});
    }
    std::sort(entries.begin(), entries.end(), [](const Entry& a, const Entry& b) { return a.name < b.name; });
    return entries;
}

} // namespace

ListingMemo::ListingMemo() : owner_(t_memo == nullptr) {
    if (owner_)
        t_memo = this;
}

ListingMemo::~ListingMemo() {
    if (owner_)
        t_memo = nullptr;
}

ListingMemo* ListingMemo::Active() { return t_memo; }

const std::vector<Entry>& ListingMemo::Listing(const fs::path& folder) {
    auto found = listings_.find(folder);
    if (found == listings_.end())
        found = listings_.emplace(folder, ReadFolder(folder)).first;
    return found->second;
}

std::vector<Entry> List(const fs::path& folder) {
    if (ListingMemo* memo = ListingMemo::Active())
        return memo->Listing(folder);
    return ReadFolder(folder);
}

std::optional<fs::path> Child(const fs::path& folder, std::string_view name) {
    // The exact spelling is the common case and costs one stat.
    std::error_code error;
    if (fs::exists(folder / std::string(name), error))
        return folder / std::string(name);
    const auto find = [name](const std::vector<Entry>& entries) -> std::optional<fs::path> {
        for (const Entry& entry : entries)
            if (EqualsNoCase(entry.name, name))
                return entry.path;
        return std::nullopt;
    };
    if (ListingMemo* memo = ListingMemo::Active())
        return find(memo->Listing(folder));
    return find(ReadFolder(folder));
}

std::optional<fs::path> ChildFolder(const fs::path& folder, std::string_view name) {
    std::optional<fs::path> child = Child(folder, name);
    std::error_code error;
    if (child && fs::is_directory(*child, error))
        return child;
    return std::nullopt;
}

std::optional<fs::path> Descend(const fs::path& folder, std::initializer_list<std::string_view> names) {
    std::optional<fs::path> at = folder;
    for (std::string_view name : names) {
        at = ChildFolder(*at, name);
        if (!at)
            return std::nullopt;
    }
    return at;
}

std::vector<Entry> FamilyFolders(const Fnd::WString& cardRoot, std::string_view marker,
                                 bool (*wanted)(const Entry& folder)) {
    std::vector<Entry> folders;
    const std::optional<fs::path> parent = ChildFolder(ToPath(cardRoot), marker);
    if (!parent)
        return folders;
    for (Entry& entry : List(*parent))
        if (entry.folder && wanted(entry))
            folders.push_back(std::move(entry));
    return folders;
}

std::string Stem(std::string_view name) {
    const std::size_t dot = name.rfind('.');
    return std::string(dot == std::string_view::npos || dot == 0 ? name : name.substr(0, dot));
}

std::string Extension(std::string_view name) {
    return std::string(ExtensionOf(name));
}

bool IsFileOfType(const Entry& entry, std::initializer_list<std::string_view> extensions) {
    if (entry.folder)
        return false;
    const std::string_view extension = ExtensionOf(entry.name);
    return std::any_of(extensions.begin(), extensions.end(),
                       [extension](std::string_view wanted) { return EqualsNoCase(extension, wanted); });
}

std::size_t AppendMediaFirst(const fs::path& folder, std::string_view mediaExtension,
                             std::vector<Fnd::WString>& files) {
    const std::vector<Entry> entries = List(folder);
    std::size_t media = 0;
    for (const Entry& entry : entries)
        if (IsFileOfType(entry, {mediaExtension})) {
            files.push_back(ToWide(entry.path));
            ++media;
        }
    for (const Entry& entry : entries)
        if (!entry.folder && !IsFileOfType(entry, {mediaExtension}))
            files.push_back(ToWide(entry.path));
    return media;
}

} // namespace Browse::card

namespace Browse::card {

NameIndex::NameIndex(const std::optional<fs::path>& folder) {
    if (!folder)
        return;
    entries_ = List(*folder);
    upper_.reserve(entries_.size());
    for (const Entry& entry : entries_)
        upper_.push_back(Upper(entry.name));
    order_.resize(entries_.size());
    for (std::size_t i = 0; i < order_.size(); ++i)
        order_[i] = i;
    std::stable_sort(order_.begin(), order_.end(),
                     [this](std::size_t a, std::size_t b) { return upper_[a] < upper_[b]; });
}

const Entry* NameIndex::FindEntry(std::string_view name) const {
    const std::string key = Upper(name);
    auto it = std::lower_bound(order_.begin(), order_.end(), key,
                               [this](std::size_t index, const std::string& k) { return upper_[index] < k; });
    if (it == order_.end() || upper_[*it] != key)
        return nullptr;
    for (auto same = it; same != order_.end() && upper_[*same] == key; ++same)
        if (entries_[*same].name == name)
            return &entries_[*same];
    return &entries_[*it];
}

std::optional<fs::path> NameIndex::Find(std::string_view name) const {
    const Entry* entry = FindEntry(name);
    return entry ? std::optional<fs::path>(entry->path) : std::nullopt;
}

std::optional<fs::path> NameIndex::FindFolder(std::string_view name) const {
    const Entry* entry = FindEntry(name);
    return entry && entry->folder ? std::optional<fs::path>(entry->path) : std::nullopt;
}

bool NameIndex::AppendIfPresent(std::string_view name, std::vector<Fnd::WString>& files) const {
    const Entry* entry = FindEntry(name);
    if (entry)
        files.push_back(ToWide(entry->path));
    return entry != nullptr;
}

std::vector<const Entry*> NameIndex::WithPrefix(std::string_view prefix) const {
    const std::string key = Upper(prefix);
    auto it = std::lower_bound(order_.begin(), order_.end(), key,
                               [this](std::size_t index, const std::string& k) { return upper_[index] < k; });
    std::vector<std::size_t> found;
    for (; it != order_.end() && upper_[*it].compare(0, key.size(), key) == 0; ++it)
        found.push_back(*it);
    // Upper-case order differs from name order where case differs after the prefix.
    std::sort(found.begin(), found.end());
    std::vector<const Entry*> entries;
    entries.reserve(found.size());
    for (std::size_t index : found)
        entries.push_back(&entries_[index]);
    return entries;
}

std::optional<fs::path> AncestorNamed(const fs::path& path, std::string_view name, int levels) {
    fs::path at = path.parent_path();
    for (int i = 0; i < levels && at.has_relative_path(); ++i, at = at.parent_path())
        if (EqualsNoCase(at.filename().string(), name))
            return at;
    return std::nullopt;
}

Fnd::WString RootAbove(const Fnd::WString& filePath, std::string_view name, int levels) {
    const std::optional<fs::path> ancestor = AncestorNamed(ToPath(filePath), name, levels);
    return ancestor ? ToWide(ancestor->parent_path()) : Fnd::WString();
}

fs::path AboveIfNamed(const fs::path& folder, std::string_view name) {
    return EqualsNoCase(folder.filename().string(), name) ? folder.parent_path() : folder;
}

} // namespace Browse::card
