#pragma once
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "Proj/Project.h"
#include "Sqlite/Connection.h"
#include "Sqlite/Statement.h"

namespace Proj {

// The project as one SQLite file in WAL mode: readers in other processes go on while this one
// writes. Every call is one transaction and uses statements compiled once at opening.
class SqliteProject final : public Project {
public:
    explicit SqliteProject(const std::string& utf8Path);
    ~SqliteProject() override;

    ProjectItem ImportItem(const ProjectItem& item) override;
    std::vector<ProjectItem> ImportItems(const std::vector<ProjectItem>& items) override;
    bool RenameItem(const Fnd::WString& path, const Fnd::WString& newName) override;
    bool MergeMetadata(const Fnd::WString& path, const std::vector<ItemMetadata>& metadata) override;

    std::optional<ProjectItem> FindItem(const Fnd::WString& path) const override;
    std::vector<Fnd::WString> Bins() const override;
    std::vector<ProjectItem> Items(const Fnd::WString* bin = nullptr) const override;

private:
    struct Statements;

    ProjectItem ImportInTransaction(const ProjectItem& item);
    std::int64_t BinIdCreatingIt(const std::string& name);
    std::optional<std::int64_t> ItemIdOf(const std::string& path) const;
    void ReplaceExtraPaths(std::int64_t itemId, const std::vector<Fnd::WString>& paths);
    void AppendExtraPaths(std::int64_t itemId, const std::vector<Fnd::WString>& paths);
    void MergeMetadataRows(std::int64_t itemId, const std::vector<ItemMetadata>& metadata);
    void MergeDigests(std::int64_t itemId, const std::vector<FileDigest>& digests);
    std::optional<ProjectItem> ReadItem(const std::string& path) const;

    mutable Sqlite::Connection db_;
    std::unique_ptr<Statements> statements_;
};

} // namespace Proj
