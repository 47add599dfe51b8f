#pragma once

namespace Sqlite {

class Connection;

// One transaction, rolled back unless committed, so a call that throws leaves the file as it was.
class Transaction {
public:
    // A writer takes the write lock at once: a deferred transaction that later needs it could
    // only fail, since SQLite does not wait for a lock a reader wants to upgrade.
    enum class Kind { Read, Write };
    Transaction(Connection& connection, Kind kind);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    void Commit();

private:
    Connection& connection_;
    bool open_ = true;
};

} // namespace Sqlite
