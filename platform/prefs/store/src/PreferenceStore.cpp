#include "Proj/PreferenceStore.h"

#include <sqlite3.h>
#include <sys/stat.h>

#include <cerrno>
#include <cmath>
#include <fstream>
#include <limits>
#include <system_error>

#include "Fnd/IgdHome.h"
#include "Proj/Backend.h"

namespace Proj {
namespace {

// "IGDP": tells our files from any other SQLite database.
constexpr std::int32_t kApplicationID = 0x49474450;
constexpr std::int32_t kSchemaVersion = 1;

const Fnd::StationID kPreferencesStation{"Proj.Preferences"};

std::string ParentFolder(const std::string& path) {
    const auto slash = path.rfind('/');
    return slash == std::string::npos || slash == 0 ? std::string() : path.substr(0, slash);
}

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
std::optional<PreferenceData> ReadColumn(sqlite3_stmt* statement, int kindColumn, int valueColumn) {
    const auto kind = static_cast<ValueKind>(sqlite3_column_int64(statement, kindColumn));
    const int type = sqlite3_column_type(statement, valueColumn);
    const auto whole = [&](auto low, auto high) -> std::optional<std::int64_t> {
        if (type != SQLITE_INTEGER)
            return std::nullopt;
        const std::int64_t value = sqlite3_column_int64(statement, valueColumn);
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
        return PreferenceData(static_cast<float>(sqlite3_column_double(statement, valueColumn)));
    case ValueKind::kString:
        if (type != SQLITE_TEXT)
            return std::nullopt;
        return PreferenceData(
            std::string(reinterpret_cast<const char*>(sqlite3_column_text(statement, valueColumn)),
                        static_cast<std::size_t>(sqlite3_column_bytes(statement, valueColumn))));
    }
    return std::nullopt;
}

int BindData(sqlite3_stmt* statement, int index, const PreferenceData& data) {
    struct Binder {
        sqlite3_stmt* statement;
        int index;
        int operator()(bool value) const { return sqlite3_bind_int64(statement, index, value ? 1 : 0); }
        int operator()(std::int32_t value) const { return sqlite3_bind_int64(statement, index, value); }
        int operator()(std::uint32_t value) const { return sqlite3_bind_int64(statement, index, value); }
        int operator()(float value) const { return sqlite3_bind_double(statement, index, value); }
        int operator()(const std::string& value) const {
            return sqlite3_bind_text(statement, index, value.data(), static_cast<int>(value.size()),
                                     SQLITE_TRANSIENT);
        }
    };
    return std::visit(Binder{statement, index}, data);
}

// Finalises the statement on every way out.
class Statement {
public:
    Statement(sqlite3* db, const char* sql) {
        result_ = sqlite3_prepare_v2(db, sql, -1, &statement_, nullptr);
    }
    ~Statement() { sqlite3_finalize(statement_); }
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;
    bool Prepared() const { return result_ == SQLITE_OK; }
    sqlite3_stmt* get() const { return statement_; }

private:
    sqlite3_stmt* statement_ = nullptr;
    int result_ = SQLITE_ERROR;
};

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

PreferenceStore::~PreferenceStore() {
    sqlite3_close_v2(db_);
}

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

void PreferenceStore::Fail(const std::string& what) const {
    const std::string reason = db_ != nullptr ? sqlite3_errmsg(db_) : "cannot open";
    throw PreferenceStoreError("preferences " + path_ + ": " + what + ": " + reason);
}

void PreferenceStore::OpenDatabase(bool create) {
    if (create)
        Fnd::EnsureDirectory(ParentFolder(path_));
    const int flags = SQLITE_OPEN_READWRITE | (create ? SQLITE_OPEN_CREATE : 0) | SQLITE_OPEN_FULLMUTEX;
    if (sqlite3_open_v2(path_.c_str(), &db_, flags, nullptr) != SQLITE_OK) {
        const std::string reason = db_ != nullptr ? sqlite3_errmsg(db_) : "out of memory";
        sqlite3_close_v2(db_);
        db_ = nullptr;
        throw PreferenceStoreError("preferences " + path_ + ": cannot open: " + reason);
    }
    // Another process may be writing a moment: wait for it rather than fail.
    sqlite3_busy_timeout(db_, 5000);
    try {
        EnsureSchema();
    } catch (...) {
        sqlite3_close_v2(db_);
        db_ = nullptr;
        throw;
    }
}

void PreferenceStore::EnsureSchema() {
    const auto pragma = [&](const char* sql) {
        Statement statement(db_, sql);
        if (!statement.Prepared() || sqlite3_step(statement.get()) != SQLITE_ROW)
            Fail("not a preference file");
        return static_cast<std::int32_t>(sqlite3_column_int64(statement.get(), 0));
    };
    const auto isNew = [&] {
        return pragma("PRAGMA application_id") == 0 && pragma("PRAGMA user_version") == 0 &&
               pragma("SELECT count(*) FROM sqlite_schema") == 0;
    };

    if (isNew()) {
        if (sqlite3_exec(db_, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr) != SQLITE_OK)
            Fail("cannot create");
        // Another process may have made the file ours between the look and the lock.
        if (isNew()) {
            // Version 1 is the first layout, so there is nothing older to upgrade.
            const std::string create = "CREATE TABLE preferences (key TEXT PRIMARY KEY NOT NULL, "
                                       "kind INTEGER NOT NULL, value) WITHOUT ROWID;"
                                       "PRAGMA application_id=" +
                                       std::to_string(kApplicationID) +
                                       ";PRAGMA user_version=" + std::to_string(kSchemaVersion) + ";";
            if (sqlite3_exec(db_, create.c_str(), nullptr, nullptr, nullptr) != SQLITE_OK) {
                sqlite3_exec(db_, "ROLLBACK", nullptr, nullptr, nullptr);
                Fail("cannot create");
            }
        }
        if (sqlite3_exec(db_, "COMMIT", nullptr, nullptr, nullptr) != SQLITE_OK) {
            sqlite3_exec(db_, "ROLLBACK", nullptr, nullptr, nullptr);
            Fail("cannot create");
        }
    }

    if (pragma("PRAGMA application_id") != kApplicationID)
        throw PreferenceStoreError("preferences " + path_ + ": not a preference file of IGD");
    if (const std::int32_t version = pragma("PRAGMA user_version"); version > kSchemaVersion)
        throw PreferenceStoreError("preferences " + path_ + ": written by a newer IGD (schema version " +
                                   std::to_string(version) + ", this one reads up to " +
                                   std::to_string(kSchemaVersion) + "); left as it is");
    // Only now that the file is known to be ours may its journal change. A write-ahead log
    // commits with one flush and lets other processes read while one writes; FULL makes every
    // commit durable before SetValue returns.
    if (sqlite3_exec(db_, "PRAGMA journal_mode=WAL; PRAGMA synchronous=FULL;", nullptr, nullptr, nullptr) !=
        SQLITE_OK)
        Fail("cannot open");
}

std::int64_t PreferenceStore::DataVersion() {
    Statement statement(db_, "PRAGMA data_version");
    if (!statement.Prepared() || sqlite3_step(statement.get()) != SQLITE_ROW)
        Fail("cannot read");
    return sqlite3_column_int64(statement.get(), 0);
}

void PreferenceStore::LoadValues() {
    std::unordered_map<std::string, PreferenceData> values;
    Statement statement(db_, "SELECT key, kind, value FROM preferences");
    if (!statement.Prepared())
        Fail("cannot read");
    int step = SQLITE_ROW;
    while ((step = sqlite3_step(statement.get())) == SQLITE_ROW) {
        std::string key(reinterpret_cast<const char*>(sqlite3_column_text(statement.get(), 0)),
                        static_cast<std::size_t>(sqlite3_column_bytes(statement.get(), 0)));
        if (auto data = ReadColumn(statement.get(), 1, 2))
            values.emplace(std::move(key), std::move(*data));
    }
    if (step != SQLITE_DONE)
        Fail("cannot read");
    values_ = std::move(values);
}

void PreferenceStore::Refresh() {
    std::lock_guard lock(mutex_);
    RefreshLockedKeys();
    if (db_ == nullptr) {
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
    Statement statement(db_, "INSERT INTO preferences (key, kind, value) VALUES (?1, ?2, ?3) "
                             "ON CONFLICT (key) DO UPDATE SET kind = excluded.kind, value = excluded.value");
    if (!statement.Prepared() ||
        sqlite3_bind_text(statement.get(), 1, key.data(), static_cast<int>(key.size()), SQLITE_STATIC) !=
            SQLITE_OK ||
        sqlite3_bind_int64(statement.get(), 2, static_cast<std::int64_t>(KindOf(data))) != SQLITE_OK ||
        BindData(statement.get(), 3, data) != SQLITE_OK || sqlite3_step(statement.get()) != SQLITE_DONE)
        Fail("cannot write " + key);
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
        if (sqlite3_exec(db_, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr) != SQLITE_OK)
            Fail("cannot write");
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
    std::string failure;
    if (!batchDropped_) {
        if (sqlite3_exec(db_, "COMMIT", nullptr, nullptr, nullptr) == SQLITE_OK)
            return;
        failure = sqlite3_errmsg(db_);
    }
    sqlite3_exec(db_, "ROLLBACK", nullptr, nullptr, nullptr);
    // The cache took each write as it came; the file is the truth again.
    LoadValues();
    if (!failure.empty())
        throw PreferenceStoreError("preferences " + path_ + ": cannot write: " + failure);
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
