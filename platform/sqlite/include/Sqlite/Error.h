#pragma once
#include <stdexcept>
#include <string>

namespace Sqlite {

// Any failure of a database: the text names the file and gives SQLite's own words. Stores derive
// their public error from it and raise that instead (see Connection::Options::raise).
class Error : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

} // namespace Sqlite
