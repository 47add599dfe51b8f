#include "Proj/PreferenceStore.h"

#include <sqlite3.h>
#include <sys/stat.h>

#include <cerrno>
#include <cmath>
#include <fstream>
#include <limits>
#include <system_error>

#include "Fnd/IgdHome.h"
#include "Fnd/PathUtils.h"
#include "Proj/Backend.h"
#include "Sqlite/Schema.h"
#include "Sqlite/Statement.h"

namespace Proj {
namespace {

// "IGDP": tells our files from any other SQLite database.
constexpr std::int32_t kApplicationID = 0x49474450;
constexpr int kSchemaVersion = 1;

// Version 1 is the first layout, so there is nothing older to upgrade.
void CreateSchema(Sqlite::Connection& connection) {
    connection.Execute(
        "CREATE TABLE preferences (key TEXT PRIMARY KEY NOT NULL, kind INTEGER NOT NULL, value) "
        "WITHOUT ROWID");
}

void UpgradeFrom(Sqlite::Connection&, int version) {
    throw std::logic_error("no upgrade of the preferences from version " + std::to_string(version));
}

const Sqlite::Schema kPreferenceSchema{.storage = Sqlite::Schema::Storage::HeaderFields,
                                       .applicationId = kApplicationID,
                                       .version = kSchemaVersion,
                                       .create = CreateSchema,
                                       .upgrade = UpgradeFrom};

[[noreturn]] void RaisePreferenceError(const std::string& path, std::string_view what,
                                       std::string_view reason) {
    throw PreferenceStoreError("preferences " + path + ": " + std::string(what) + ": " + std::string(reason));
}

[[noreturn]] void RefusePreferences(const Sqlite::SchemaError& refusal, const std::string& path) {
    switch (refusal.reason) {
    case Sqlite::SchemaError::Reason::NotADatabase:
        throw PreferenceStoreError("preferences " + path + ": not a preference file (not a database)");
    case Sqlite::SchemaError::Reason::OtherKind:
        throw PreferenceStoreError("preferences " + path + ": not a preference file of IGD");
    case Sqlite::SchemaError::Reason::Newer:
        break;
    }
    throw PreferenceStoreError("preferences " + path + ": written by a newer IGD (schema version " +
                               std::to_string(refusal.storedVersion) + ", this one reads up to " +
                               std::to_string(kSchemaVersion) + "); left as it is");
}

const Fnd::StationID kPreferencesStation{"Proj.Preferences"};

bool Exists(const std::string& path) {
    struct stat info {};
    return ::stat(path.c_str(), &info) == 0;
}

std::string_view TrimBlanks(std::string_view text) {
    const auto first = text.find_first_not_of(" \t\r");
    if (first == std::string_view::npos)
        return {};
    const auto last = text.find_last_not_of(" \t\r");
    return text.substr(first, last - first + 1);
}

// A value as it lies in a row; nothing when the row is damaged or of a kind this version does not
// know, so that one bad row never hides the others.
std::optional<PreferenceData> ReadColumn(const Sqlite::Statement& row, int kindColumn, int valueColumn) {
    const auto kind = static_cast<ValueKind>(row.Int(kindColumn));
    const int type = row.Type(valueColumn);
    const auto whole = [&](auto low, auto high) -> std::optional<std::int64_t> {
        if (type != SQLITE_INTEGER)
            return std::nullopt;
        const std::int64_t value = row.Int(valueColumn);
        if (value < static_cast<std::int64_t>(low) || value > static_cast<std::int64_t>(high))
            return std::nullopt;
        return value;
    };
    switch (kind) {
    case ValueKind::kBool:
        if (auto value = whole(0, 1))
            return PreferenceData(*value != 0);
        return std::nullopt;
    case ValueKind::kInt32:
        if (auto value =
                whole(std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max()))
            return PreferenceData(static_cast<std::int32_t>(*value));
        return std::nullopt;
    case ValueKind::kUInt32:
        if (auto value = whole(0, std::numeric_limits<std::uint32_t>::max()))
            return PreferenceData(static_cast<std::uint32_t>(*value));
        return std::nullopt;
    case ValueKind::kFloat:
        if (type != SQLITE_FLOAT && type != SQLITE_INTEGER)
            return std::nullopt;
        return PreferenceData(static_cast<float>(row.Double(valueColumn)));
    case ValueKind::kString:
        if (type != SQLITE_TEXT)
            return std::nullopt;
        return PreferenceData(row.Text(valueColumn));
    }
    return std::nullopt;
}

void BindData(Sqlite::Statement& statement, int index, const PreferenceData& data) {
    struct Binder {
        Sqlite::Statement& statement;
        int index;
        void operator()(bool value) const { statement.Bind(index, std::int64_t{value ? 1 : 0}); }
        void operator()(std::int32_t value) const { statement.Bind(index, std::int64_t{value}); }
        void operator()(std::uint32_t value) const { statement.Bind(index, std::int64_t{value}); }
        void operator()(float value) const { statement.BindDouble(index, value); }
        void operator()(const std::string& value) const { statement.Bind(index, std::string_view(value)); }
    };
    std::visit(Binder{statement, index}, data);
}

} // namespace

std::string PreferenceStore::DefaultPath() {
    return Fnd::IgdHomeDirectory() + "/preferences.db";
}

Fnd::InterfaceRef<PreferenceStore> PreferenceStore::Open(std::string path,
                                                         std::function<std::string()> lockedKeysFile) {
    Fnd::InterfaceRef<PreferenceStore> store(new PreferenceStore(std::move(path), std::move(lockedKeysFile)));
    store->Refresh();
    return store;
}

PreferenceStore::PreferenceStore(std::string path, std::function<std::string()> lockedKeysFile)
    : path_(std::move(path)), lockedKeysFile_(std::move(lockedKeysFile)) {}

PreferenceStore::~PreferenceStore() = default;

void PreferenceStore::AddRef() {
    count_.fetch_add(1, std::memory_order_relaxed);
}

void PreferenceStore::Release() {
    if (count_.fetch_sub(1, std::memory_order_acq_rel) == 1)
        delete this;
}

Fnd::QueryResult PreferenceStore::QueryInterface(const Fnd::InterfaceID& id, void** out) {
    if (id == IPreferences::GetInterfaceID() || id == Fnd::FndUnknown::GetInterfaceID()) {
        AddRef();
        *out = static_cast<IPreferences*>(this);
        return Fnd::kQueryOK;
    }
    *out = nullptr;
    return Fnd::kQueryNoInterface;
}

void PreferenceStore::OpenDatabase(bool create) {
    if (create)
        Fnd::EnsureDirectory(Fnd::PathUtils::FolderOf(path_));
    // A write-ahead log commits with one flush and lets other processes read while one writes;
    // FULL makes every commit durable before SetValue returns.
    try {
        db_ =
            std::make_unique<Sqlite::Connection>(path_,
                                                 Sqlite::Connection::Options{.create = create,
                                                                             .busyTimeoutMilliseconds = 5000,
                                                                             .writeAheadLog = true,
                                                                             .synchronous = "FULL",
                                                                             .raise = RaisePreferenceError},
                                                 kPreferenceSchema);
    } catch (const Sqlite::SchemaError& refusal) {
        RefusePreferences(refusal, path_);
    }
}

std::int64_t PreferenceStore::DataVersion() {
    Sqlite::Statement statement(*db_, "PRAGMA data_version");
    if (!statement.Step())
        db_->Fail("cannot read");
    return statement.Int(0);
}

void PreferenceStore::LoadValues() {
    std::unordered_map<std::string, PreferenceData> values;
    Sqlite::Statement statement(*db_, "SELECT key, kind, value FROM preferences");
    while (statement.Step())
        if (auto data = ReadColumn(statement, 1, 2))
            values.emplace(statement.Text(0), std::move(*data));
    values_ = std::move(values);
}

void PreferenceStore::Refresh() {
    std::lock_guard lock(mutex_);
    RefreshLockedKeys();
    if (!db_) {
        // Another process may have made the file since we last looked.
        if (!Exists(path_))
            return;
        OpenDatabase(false);
    }
    // data_version moves only when another connection committed, so an unchanged file costs one
    // pragma and no reload.
    const std::int64_t version = DataVersion();
    if (version != dataVersion_) {
        LoadValues();
        dataVersion_ = version;
    }
}

bool PreferenceStore::GetValue(const PreferenceKey& key, SerializeableValueBase& value) {
    std::lock_guard lock(mutex_);
    if (const auto found = sessionValues_.find(key.str()); found != sessionValues_.end())
        return value.SetData(found->second);
    if (const auto found = values_.find(key.str()); found != values_.end())
        return value.SetData(found->second);
    return false;
}

void PreferenceStore::WriteValue(const std::string& key, const PreferenceData& data) {
    if (db_ == nullptr)
        OpenDatabase(true);
    Sqlite::Statement statement(
        *db_, "INSERT INTO preferences (key, kind, value) VALUES (?1, ?2, ?3) "
              "ON CONFLICT (key) DO UPDATE SET kind = excluded.kind, value = excluded.value");
    statement.Bind(1, std::string_view(key)).Bind(2, static_cast<std::int64_t>(KindOf(data)));
    BindData(statement, 3, data);
    statement.Run();
}

void PreferenceStore::SetValue(const PreferenceKey& key, const SerializeableValueBase& value,
                               bool persistent) {
    std::lock_guard lock(mutex_);
    RefreshLockedKeys();
    if (lockedKeys_.count(key.str()) != 0)
        return;
    PreferenceData data = value.GetData();
    if (!persistent) {
        sessionValues_[key.str()] = std::move(data);
        return;
    }
    WriteValue(key.str(), data);
    sessionValues_.erase(key.str());
    values_[key.str()] = std::move(data);
}

bool PreferenceStore::IsReadOnly(const PreferenceKey& key) {
    std::lock_guard lock(mutex_);
    // Asked before every write, not only after a refresh, so that a key locked while a dialog is
    // open is not written when it closes.
    RefreshLockedKeys();
    return lockedKeys_.count(key.str()) != 0;
}

Fnd::StationID PreferenceStore::GetStationID() const {
    return kPreferencesStation;
}

void PreferenceStore::BeginBatch() {
    std::lock_guard lock(mutex_);
    if (batchDepth_ == 0) {
        if (db_ == nullptr)
            OpenDatabase(true);
        batch_.emplace(*db_, Sqlite::Transaction::Kind::Write);
        batchDropped_ = false;
    }
    ++batchDepth_;
}

void PreferenceStore::EndBatch(bool commit) {
    std::lock_guard lock(mutex_);
    if (batchDepth_ == 0)
        return;
    batchDropped_ = batchDropped_ || !commit;
    if (--batchDepth_ > 0)
        return;
    if (!batchDropped_) {
        try {
            batch_->Commit();
            batch_.reset();
            return;
        } catch (const PreferenceStoreError&) {
            // The cache took each write as it came; the file is the truth again.
            batch_.reset();
            LoadValues();
            throw;
        }
    }
    batch_.reset();
    LoadValues();
}

std::string PreferenceStore::LockedKeysFile() {
    std::lock_guard lock(mutex_);
    RefreshLockedKeys();
    return lockedPath_;
}

void PreferenceStore::RefreshLockedKeys() {
    const std::string path = lockedKeysFile_ ? lockedKeysFile_() : Fnd::SiteFile("locked-preferences");
    FileIdentity identity;
    struct stat info {};
    if (::stat(path.c_str(), &info) == 0)
        identity = {info.st_dev, info.st_ino, info.st_size,
                    static_cast<std::int64_t>(info.st_mtim.tv_sec) * 1'000'000'000 + info.st_mtim.tv_nsec};
    if (path == lockedPath_ && identity == lockedIdentity_)
        return;

    std::unordered_set<std::string> keys;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        const std::string_view key = TrimBlanks(line);
        if (!key.empty() && key.front() != '#')
            keys.emplace(key);
    }
    lockedKeys_ = std::move(keys);
    lockedPath_ = path;
    lockedIdentity_ = identity;
}

void InstallPreferenceStore() {
    SetBackend(MakeBackend(
        Fnd::InterfaceRef<IPreferences>(PreferenceStore::Open(PreferenceStore::DefaultPath()).get())));
}

} // namespace Proj
