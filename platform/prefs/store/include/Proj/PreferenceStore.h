#pragma once
// The preferences of IGD on disk: an SQLite file under $IGD_HOME, and the keys an administrator
// locked, one a line, in the site file "locked-preferences".
#include <atomic>
#include <cstdint>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <string>
#include <sys/types.h>
#include <unordered_map>
#include <unordered_set>

#include "Fnd/InterfaceRef.h"
#include "Proj/IPreferences.h"
#include "Proj/PreferenceBatch.h"
#include "Sqlite/Connection.h"
#include "Sqlite/Transaction.h"

namespace Proj {

// The file cannot be used: not a database, another program's, a newer version, or the disk
// refused. The text names the file and the reason.
class PreferenceStoreError : public Sqlite::Error {
public:
    using Sqlite::Error::Error;
};

class PreferenceStore final : public IPreferences, public IPreferenceBatch {
public:
    // $IGD_HOME/preferences.db
    static std::string DefaultPath();

    // Reads what the file holds; the file and its folder are created by the first persistent
    // write, so a store that is only read leaves the disk as it is. lockedKeysFile names the
    // lock list when asked (it may change while the store lives); without it the site file
    // "locked-preferences" of $IGD_HOME/site or /etc/igd. Throws PreferenceStoreError.
    static Fnd::InterfaceRef<PreferenceStore> Open(std::string path,
                                                   std::function<std::string()> lockedKeysFile = {});

    ~PreferenceStore() override;
    PreferenceStore(const PreferenceStore&) = delete;
    PreferenceStore& operator=(const PreferenceStore&) = delete;

    void AddRef() override;
    void Release() override;
    Fnd::QueryResult QueryInterface(const Fnd::InterfaceID& id, void** out) override;
    Fnd::FndUnknown* GetRawObject() override { return this; }

    void Refresh() override;
    bool GetValue(const PreferenceKey& key, SerializeableValueBase& value) override;
    // Throws PreferenceStoreError when the disk refuses; the stored value is then the old one.
    void SetValue(const PreferenceKey& key, const SerializeableValueBase& value, bool persistent) override;
    bool IsReadOnly(const PreferenceKey& key) override;
    Fnd::StationID GetStationID() const override;

    // One transaction for the writes between them. Meant for the UI thread, the one writer: a
    // write from another thread meanwhile would join the batch.
    void BeginBatch() override;
    void EndBatch(bool commit) override;

    const std::string& Path() const { return path_; }
    // The lock list last read, for telling a user why a key is locked.
    std::string LockedKeysFile();

private:
    PreferenceStore(std::string path, std::function<std::string()> lockedKeysFile);

    struct FileIdentity {
        dev_t device = 0;
        ino_t inode = 0;
        off_t size = -1;
        std::int64_t modifiedNanoseconds = 0;
        friend bool operator==(const FileIdentity&, const FileIdentity&) = default;
    };

    void OpenDatabase(bool create);
    void LoadValues();
    std::int64_t DataVersion();
    void RefreshLockedKeys();
    void WriteValue(const std::string& key, const PreferenceData& data);

    std::atomic<int> count_{0};
    std::mutex mutex_;
    const std::string path_;
    const std::function<std::string()> lockedKeysFile_;
    // Opened when the file exists or is first written.
    std::unique_ptr<Sqlite::Connection> db_;
    std::optional<Sqlite::Transaction> batch_;
    std::int64_t dataVersion_ = -1;
    int batchDepth_ = 0;
    bool batchDropped_ = false;
    std::unordered_map<std::string, PreferenceData> values_;
    // Values set for this process only; they hide stored ones.
    std::unordered_map<std::string, PreferenceData> sessionValues_;
    std::string lockedPath_;
    FileIdentity lockedIdentity_;
    std::unordered_set<std::string> lockedKeys_;
};

// Opens the store at DefaultPath and installs it as the back end of the process.
void InstallPreferenceStore();

} // namespace Proj
