#pragma once
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

#include "Proj/ProjectItem.h"
#include "Sqlite/Error.h"

namespace Proj {

// A project file that cannot be opened, created or written; the message names the file.
class ProjectError : public Sqlite::Error {
public:
    using Sqlite::Error::Error;
};

// A project: one SQLite file of bins and items. Safe to open from several threads and
// processes at once (each write is one transaction); one object is used by one thread at a time.
class Project {
public:
    // Opens the project file, creating it (and its folder) when absent. Throws ProjectError.
    static std::unique_ptr<Project> Open(const std::string& utf8Path);
    virtual ~Project() = default;

    // Adds the item to the bin named (created on demand; empty: the root bin), or updates the
    // item of the same path wherever it is: its fields are replaced, its metadata merged by
    // namespace and key. An update leaves the item in its bin and keeps its clip Guid when the
    // import brings none. Paths are compared after normalisation. Answers the stored item.
    virtual ProjectItem ImportItem(const ProjectItem& item) = 0;
    // The same for many items in one transaction: all or none are stored. Answers the stored
    // items in the order given.
    virtual std::vector<ProjectItem> ImportItems(const std::vector<ProjectItem>& items) = 0;
    // Renames the item of that path; false if there is none.
    virtual bool RenameItem(const Fnd::WString& path, const Fnd::WString& newName) = 0;
    // Merges metadata into the item of that path; false if there is none.
    virtual bool MergeMetadata(const Fnd::WString& path, const std::vector<ItemMetadata>& metadata) = 0;

    virtual std::optional<ProjectItem> FindItem(const Fnd::WString& path) const = 0;
    // Bins by name, the root bin ("") first.
    virtual std::vector<Fnd::WString> Bins() const = 0;
    // Items of one bin, or of all bins when bin is null, in the order they were first imported.
    virtual std::vector<ProjectItem> Items(const Fnd::WString* bin = nullptr) const = 0;
};

// Where the project lives unless a host names one: $IGD_HOME/project.igdproj.
std::string DefaultProjectPath();

} // namespace Proj
