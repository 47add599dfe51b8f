#include "SqliteProject.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

#include "Mid/Utilities.h"
#include "ProjectSchema.h"
#include "Sqlite/Transaction.h"

namespace Proj {
namespace {

// Long enough for another process to finish any one call, even an import of a large batch.
constexpr int kBusyTimeoutMilliseconds = 30000;

constexpr const char* kItemColumns =
    "SELECT i.id, i.path, i.name, i.format, i.in_point, i.out_point, i.frame_rate, i.clip_guid, b.name "
    "FROM items i JOIN bins b ON b.id = i.bin_id ";

// Paths are the items' identity: "/card//A001.MOV" and "/card/A001.MOV" are one item.
std::string PathKey(const Fnd::WString& path) {
    return Fnd::ToUTF8(Mid::Utilities::NormalizePathWithoutUNC(path));
}

void BindTime(Sqlite::Statement& statement, int index, fluxmediatypes::Time time) {
    if (time == fluxmediatypes::kTime_Invalid)
        statement.BindNull(index);
    else
        statement.Bind(index, time);
}

fluxmediatypes::Time TimeAt(const Sqlite::Statement& statement, int column) {
    return statement.IsNull(column) ? fluxmediatypes::kTime_Invalid : statement.Int(column);
}

void BindGuid(Sqlite::Statement& statement, int index, const fluxcore::utility::Guid& guid) {
    if (guid.IsZero())
        statement.BindNull(index);
    else
        statement.Bind(index, guid.ToString());
}

// The item's own columns, in the order of kItemColumns; extra paths and metadata come apart.
ProjectItem ItemFromRow(const Sqlite::Statement& row) {
    ProjectItem item;
    item.path = Fnd::FromUTF8(row.Text(1));
    item.name = Fnd::FromUTF8(row.Text(2));
    item.format = Fnd::FromUTF8(row.Text(3));
    item.inPoint = TimeAt(row, 4);
    item.outPoint = TimeAt(row, 5);
    item.frameRate = row.Int(6);
    if (!row.IsNull(7))
        item.clipGuid = fluxcore::utility::Guid::FromString(row.Text(7)).value_or(fluxcore::utility::Guid());
    item.bin = Fnd::FromUTF8(row.Text(8));
    return item;
}

// Rows of (namespace, prefix, key, value) sorted by namespace and key, starting at column first.
void AddMetadataRow(std::vector<ItemMetadata>& metadata, const Sqlite::Statement& row, int first) {
    Fnd::WString namespaceURI = Fnd::FromUTF8(row.Text(first));
    if (metadata.empty() || metadata.back().namespaceURI != namespaceURI)
        metadata.push_back({std::move(namespaceURI), row.Text(first + 1), {}});
    metadata.back().values.emplace(Fnd::FromUTF8(row.Text(first + 2)), Fnd::FromUTF8(row.Text(first + 3)));
}

// A row of (path, algorithm, digest) starting at column first.
FileDigest DigestFromRow(const Sqlite::Statement& row, int first) {
    return {Fnd::FromUTF8(row.Text(first)), row.Text(first + 1), row.Text(first + 2)};
}

// Rows of a side table, item id first, arrive sorted by item id as the items are: one pass over
// both joins them. add gets the item's index and the row.
template <class Add> void JoinByItem(Sqlite::Statement& rows, const std::vector<std::int64_t>& ids, Add add) {
    std::size_t at = 0;
    while (rows.Step()) {
        while (at < ids.size() && ids[at] < rows.Int(0))
            ++at;
        if (at < ids.size() && ids[at] == rows.Int(0))
            add(at, rows);
    }
}

// What the tables hold after metadata is stored on a new item: sets of one namespace merged (the
// later value and prefix win), sets without values dropped, namespaces in the byte order of
// their UTF-8, as ReadItem answers them.
std::vector<ItemMetadata> AsStored(const std::vector<ItemMetadata>& metadata) {
    std::vector<std::pair<std::string, ItemMetadata>> merged;
    for (const ItemMetadata& set : metadata) {
        if (set.values.empty())
            continue;
        std::string key = Fnd::ToUTF8(set.namespaceURI);
        auto same = std::find_if(merged.begin(), merged.end(), [&](const auto& m) { return m.first == key; });
        if (same == merged.end()) {
            merged.emplace_back(std::move(key), set);
            continue;
        }
        same->second.prefix = set.prefix;
        for (const auto& [field, value] : set.values)
            same->second.values.insert_or_assign(field, value);
    }
    std::sort(merged.begin(), merged.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<ItemMetadata> stored;
    stored.reserve(merged.size());
    for (auto& entry : merged)
        stored.push_back(std::move(entry.second));
    return stored;
}

} // namespace

struct SqliteProject::Statements {
    explicit Statements(Sqlite::Connection& db)
        : findBin(db, "SELECT id FROM bins WHERE name = ?"),
          insertBin(db, "INSERT INTO bins (name) VALUES (?)"),
          findItemId(db, "SELECT id FROM items WHERE path = ?"),
          insertItem(
              db,
              "INSERT INTO items (path, name, format, in_point, out_point, frame_rate, clip_guid, bin_id) "
              "VALUES (?, ?, ?, ?, ?, ?, ?, ?)"),
          // An import without a Guid keeps the one the item has; the item stays in its bin.
          updateItem(db,
                     "UPDATE items SET name = ?, format = ?, in_point = ?, out_point = ?, frame_rate = ?, "
                     "clip_guid = COALESCE(?, clip_guid) WHERE id = ?"),
          renameItem(db, "UPDATE items SET name = ? WHERE path = ?"),
          deleteExtraPaths(db, "DELETE FROM item_extra_paths WHERE item_id = ?"),
          insertExtraPath(db, "INSERT INTO item_extra_paths (item_id, position, path) VALUES (?, ?, ?)"),
          upsertMetadata(db, "INSERT INTO item_metadata (item_id, namespace, prefix, key, value) "
                             "VALUES (?, ?, ?, ?, ?) ON CONFLICT (item_id, namespace, key) "
                             "DO UPDATE SET value = excluded.value, prefix = excluded.prefix"),
          // One namespace has one prefix on an item: the latest given.
          updatePrefix(
              db, "UPDATE item_metadata SET prefix = ? WHERE item_id = ? AND namespace = ? AND prefix <> ?"),
          readItem(db, std::string(kItemColumns) + "WHERE i.path = ?"),
          readExtraPaths(db, "SELECT path FROM item_extra_paths WHERE item_id = ? ORDER BY position"),
          readMetadata(db, "SELECT namespace, prefix, key, value FROM item_metadata WHERE item_id = ? "
                           "ORDER BY namespace, key"),
          upsertDigest(db, "INSERT INTO item_digests (item_id, path, algorithm, digest) VALUES (?, ?, ?, ?) "
                           "ON CONFLICT (item_id, path) DO UPDATE SET algorithm = excluded.algorithm, "
                           "digest = excluded.digest"),
          readDigests(db, "SELECT path, algorithm, digest FROM item_digests WHERE item_id = ? ORDER BY path"),
          readBins(db, "SELECT name FROM bins ORDER BY name"),
          readAllItems(db, std::string(kItemColumns) + "ORDER BY i.id"),
          readBinItems(db, std::string(kItemColumns) + "WHERE b.name = ? ORDER BY i.id"),
          // Both sorted by item id, as the items are, so one pass joins them.
          readAllExtraPaths(
              db, "SELECT e.item_id, e.path FROM item_extra_paths e JOIN items i ON i.id = e.item_id "
                  "JOIN bins b ON b.id = i.bin_id WHERE ?1 IS NULL OR b.name = ?1 "
                  "ORDER BY e.item_id, e.position"),
          readAllMetadata(db, "SELECT m.item_id, m.namespace, m.prefix, m.key, m.value FROM item_metadata m "
                              "JOIN items i ON i.id = m.item_id JOIN bins b ON b.id = i.bin_id "
                              "WHERE ?1 IS NULL OR b.name = ?1 ORDER BY m.item_id, m.namespace, m.key"),
          readAllDigests(db, "SELECT d.item_id, d.path, d.algorithm, d.digest FROM item_digests d "
                             "JOIN items i ON i.id = d.item_id JOIN bins b ON b.id = i.bin_id "
                             "WHERE ?1 IS NULL OR b.name = ?1 ORDER BY d.item_id, d.path") {}

    // Compiled once, kept for the connection's life.
    struct Persistent : Sqlite::Statement {
        Persistent(Sqlite::Connection& db, std::string_view sql) : Sqlite::Statement(db, sql, true) {}
    };
    Persistent findBin, insertBin, findItemId, insertItem, updateItem, renameItem, deleteExtraPaths,
        insertExtraPath, upsertMetadata, updatePrefix, readItem, readExtraPaths, readMetadata, upsertDigest,
        readDigests, readBins, readAllItems, readBinItems, readAllExtraPaths, readAllMetadata, readAllDigests;
};

// WAL lets readers in other processes see the last commit while a write goes on; a commit is on
// disk when the call returns, so an import that was answered is never lost.
SqliteProject::SqliteProject(const std::string& utf8Path) try
    : db_(utf8Path,
          {.busyTimeoutMilliseconds = kBusyTimeoutMilliseconds,
           .writeAheadLog = true,
           .synchronous = "FULL",
           .raise = RaiseProjectError},
          kProjectSchema) {
    db_.Execute("PRAGMA foreign_keys = ON; PRAGMA cache_size = -16384");
    statements_ = std::make_unique<Statements>(db_);
} catch (const Sqlite::SchemaError& refusal) {
    RefuseProject(refusal, utf8Path);
}

SqliteProject::~SqliteProject() = default;

std::int64_t SqliteProject::BinIdCreatingIt(const std::string& name) {
    {
        Sqlite::StatementUse find(statements_->findBin);
        if (find->Bind(1, name).Step())
            return find->Int(0);
    }
    Sqlite::StatementUse insert(statements_->insertBin);
    insert->Bind(1, name).Run();
    return db_.LastInsertRowId();
}

std::optional<std::int64_t> SqliteProject::ItemIdOf(const std::string& path) const {
    Sqlite::StatementUse find(statements_->findItemId);
    if (!find->Bind(1, path).Step())
        return std::nullopt;
    return find->Int(0);
}

void SqliteProject::ReplaceExtraPaths(std::int64_t itemId, const std::vector<Fnd::WString>& paths) {
    {
        Sqlite::StatementUse remove(statements_->deleteExtraPaths);
        remove->Bind(1, itemId).Run();
    }
    AppendExtraPaths(itemId, paths);
}

void SqliteProject::AppendExtraPaths(std::int64_t itemId, const std::vector<Fnd::WString>& paths) {
    Sqlite::StatementUse insert(statements_->insertExtraPath);
    std::string utf8;
    for (std::size_t position = 0; position < paths.size(); ++position) {
        Fnd::ToUTF8(paths[position], utf8);
        insert->Bind(1, itemId).Bind(2, static_cast<std::int64_t>(position)).Bind(3, utf8).Run();
        insert->Reset();
    }
}

void SqliteProject::MergeMetadataRows(std::int64_t itemId, const std::vector<ItemMetadata>& metadata) {
    std::string key, value;
    for (const ItemMetadata& set : metadata) {
        const std::string namespaceURI = Fnd::ToUTF8(set.namespaceURI);
        {
            Sqlite::StatementUse prefix(statements_->updatePrefix);
            prefix->Bind(1, set.prefix).Bind(2, itemId).Bind(3, namespaceURI).Bind(4, set.prefix).Run();
        }
        Sqlite::StatementUse upsert(statements_->upsertMetadata);
        for (const auto& [fieldKey, fieldValue] : set.values) {
            Fnd::ToUTF8(fieldKey, key);
            Fnd::ToUTF8(fieldValue, value);
            upsert->Bind(1, itemId)
                .Bind(2, namespaceURI)
                .Bind(3, set.prefix)
                .Bind(4, key)
                .Bind(5, value)
                .Run();
            upsert->Reset();
        }
    }
}

void SqliteProject::MergeDigests(std::int64_t itemId, const std::vector<FileDigest>& digests) {
    Sqlite::StatementUse upsert(statements_->upsertDigest);
    for (const FileDigest& digest : digests) {
        upsert->Bind(1, itemId).Bind(2, PathKey(digest.path)).Bind(3, digest.algorithm).Bind(4, digest.hex).Run();
        upsert->Reset();
    }
}

std::optional<ProjectItem> SqliteProject::ReadItem(const std::string& path) const {
    ProjectItem item;
    std::int64_t id = 0;
    {
        Sqlite::StatementUse row(statements_->readItem);
        if (!row->Bind(1, path).Step())
            return std::nullopt;
        id = row->Int(0);
        item = ItemFromRow(*row);
    }
    {
        Sqlite::StatementUse extra(statements_->readExtraPaths);
        extra->Bind(1, id);
        while (extra->Step())
            item.extraPaths.push_back(Fnd::FromUTF8(extra->Text(0)));
    }
    {
        Sqlite::StatementUse metadata(statements_->readMetadata);
        metadata->Bind(1, id);
        while (metadata->Step())
            AddMetadataRow(item.metadata, *metadata, 0);
    }
    Sqlite::StatementUse digests(statements_->readDigests);
    digests->Bind(1, id);
    while (digests->Step())
        item.digests.push_back(DigestFromRow(*digests, 0));
    return item;
}

ProjectItem SqliteProject::ImportInTransaction(const ProjectItem& item) {
    const std::string path = PathKey(item.path);
    if (path.empty())
        throw std::invalid_argument("Proj::Project: an item without a path");
    const std::string name = Fnd::ToUTF8(item.name);
    const std::string format = Fnd::ToUTF8(item.format);
    if (const std::optional<std::int64_t> existing = ItemIdOf(path)) {
        const std::int64_t id = *existing;
        Sqlite::StatementUse update(statements_->updateItem);
        update->Bind(1, name).Bind(2, format);
        BindTime(*update, 3, item.inPoint);
        BindTime(*update, 4, item.outPoint);
        update->Bind(5, item.frameRate);
        BindGuid(*update, 6, item.clipGuid);
        update->Bind(7, id).Run();
        ReplaceExtraPaths(id, item.extraPaths);
        MergeMetadataRows(id, item.metadata);
        MergeDigests(id, item.digests);
        // Merged with what was there: only the tables know the result.
        return *ReadItem(path);
    }
    const std::int64_t bin = BinIdCreatingIt(Fnd::ToUTF8(item.bin));
    std::int64_t id = 0;
    {
        Sqlite::StatementUse insert(statements_->insertItem);
        insert->Bind(1, path).Bind(2, name).Bind(3, format);
        BindTime(*insert, 4, item.inPoint);
        BindTime(*insert, 5, item.outPoint);
        insert->Bind(6, item.frameRate);
        BindGuid(*insert, 7, item.clipGuid);
        insert->Bind(8, bin).Run();
        id = db_.LastInsertRowId();
    }
    AppendExtraPaths(id, item.extraPaths);
    MergeMetadataRows(id, item.metadata);
    MergeDigests(id, item.digests);
    if (!item.digests.empty())
        return *ReadItem(path);
    // A new item is what was given, so the answer needs no reading back.
    ProjectItem stored = item;
    stored.path = Fnd::FromUTF8(path);
    stored.metadata = AsStored(item.metadata);
    return stored;
}

ProjectItem SqliteProject::ImportItem(const ProjectItem& item) {
    Sqlite::Transaction transaction(db_, Sqlite::Transaction::Kind::Write);
    ProjectItem stored = ImportInTransaction(item);
    transaction.Commit();
    return stored;
}

std::vector<ProjectItem> SqliteProject::ImportItems(const std::vector<ProjectItem>& items) {
    std::vector<ProjectItem> stored;
    stored.reserve(items.size());
    Sqlite::Transaction transaction(db_, Sqlite::Transaction::Kind::Write);
    for (const ProjectItem& item : items)
        stored.push_back(ImportInTransaction(item));
    transaction.Commit();
    return stored;
}

bool SqliteProject::RenameItem(const Fnd::WString& path, const Fnd::WString& newName) {
    Sqlite::Transaction transaction(db_, Sqlite::Transaction::Kind::Write);
    Sqlite::StatementUse rename(statements_->renameItem);
    rename->Bind(1, Fnd::ToUTF8(newName)).Bind(2, PathKey(path)).Run();
    const bool renamed = db_.Changes() > 0;
    transaction.Commit();
    return renamed;
}

bool SqliteProject::MergeMetadata(const Fnd::WString& path, const std::vector<ItemMetadata>& metadata) {
    Sqlite::Transaction transaction(db_, Sqlite::Transaction::Kind::Write);
    const std::optional<std::int64_t> id = ItemIdOf(PathKey(path));
    if (!id)
        return false;
    MergeMetadataRows(*id, metadata);
    transaction.Commit();
    return true;
}

std::optional<ProjectItem> SqliteProject::FindItem(const Fnd::WString& path) const {
    Sqlite::Transaction transaction(db_, Sqlite::Transaction::Kind::Read);
    return ReadItem(PathKey(path));
}

std::vector<Fnd::WString> SqliteProject::Bins() const {
    Sqlite::Transaction transaction(db_, Sqlite::Transaction::Kind::Read);
    std::vector<Fnd::WString> bins;
    Sqlite::StatementUse read(statements_->readBins);
    while (read->Step())
        bins.push_back(Fnd::FromUTF8(read->Text(0)));
    return bins;
}

std::vector<ProjectItem> SqliteProject::Items(const Fnd::WString* bin) const {
    Sqlite::Transaction transaction(db_, Sqlite::Transaction::Kind::Read);
    const std::string binName = bin != nullptr ? Fnd::ToUTF8(*bin) : std::string();
    std::vector<ProjectItem> items;
    std::vector<std::int64_t> ids;
    {
        Sqlite::StatementUse read(bin != nullptr ? statements_->readBinItems : statements_->readAllItems);
        if (bin != nullptr)
            read->Bind(1, binName);
        while (read->Step()) {
            ids.push_back(read->Int(0));
            items.push_back(ItemFromRow(*read));
        }
    }
    const auto bound = [&](Sqlite::StatementUse& rows) -> Sqlite::Statement& {
        if (bin != nullptr)
            rows->Bind(1, binName);
        return *rows;
    };
    {
        Sqlite::StatementUse extra(statements_->readAllExtraPaths);
        JoinByItem(bound(extra), ids, [&](std::size_t at, const Sqlite::Statement& row) {
            items[at].extraPaths.push_back(Fnd::FromUTF8(row.Text(1)));
        });
    }
    {
        Sqlite::StatementUse metadata(statements_->readAllMetadata);
        JoinByItem(bound(metadata), ids, [&](std::size_t at, const Sqlite::Statement& row) {
            AddMetadataRow(items[at].metadata, row, 1);
        });
    }
    Sqlite::StatementUse digests(statements_->readAllDigests);
    JoinByItem(bound(digests), ids, [&](std::size_t at, const Sqlite::Statement& row) {
        items[at].digests.push_back(DigestFromRow(row, 1));
    });
    return items;
}

} // namespace Proj
