#pragma once

#include "Support/Handle.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

struct sqlite3;
struct sqlite3_stmt;
extern "C" int sqlite3_finalize(sqlite3_stmt *);

namespace kerlune {

// One prepared SQLite statement. Parameters count from 1, columns from 0, as in SQLite.
//
// Thread: the connection's. A statement that did not prepare is false, ignores what is bound and has no rows.
class Statement final {
public:
    Statement(sqlite3 *connection, std::string_view sql);

    explicit operator bool() const { return m_statement != nullptr; }

    void bind(int parameter, std::string_view text); // UTF-8, copied
    void bind(int parameter, double value);
    void bind(int parameter, std::int64_t value);
    void bind(int parameter, std::span<const std::uint8_t> blob);

    bool nextRow();          // true while there is a row
    bool isComplete() const; // once there is none: whether all rows came, and no error ended them
    bool finishes();         // runs a statement that has no rows; false when it failed
    void reset();

    bool isNull(int column) const;
    std::string text(int column) const; // empty for NULL
    double real(int column) const;
    std::int64_t integer(int column) const;
    std::span<const std::uint8_t> blob(int column) const; // valid until the next step

private:
    Handle<sqlite3_stmt, sqlite3_finalize> m_statement;
    int m_result = 0; // of the last step
};

} // namespace kerlune
