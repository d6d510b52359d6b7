#include "Store/Statement.h"

#include <sqlite3.h>

namespace kerlune {

Statement::Statement(sqlite3 *connection, std::string_view sql)
{
    sqlite3_stmt *statement = nullptr;
    sqlite3_prepare_v2(connection, sql.data(), static_cast<int>(sql.size()), &statement, nullptr);
    m_statement.reset(statement);
}

void Statement::bind(int parameter, std::string_view text)
{
    // A null pointer would bind NULL; an empty view may hold one.
    const char *bytes = text.empty() ? "" : text.data();
    sqlite3_bind_text(m_statement.get(), parameter, bytes, static_cast<int>(text.size()), SQLITE_TRANSIENT);
}

void Statement::bind(int parameter, double value)
{
    sqlite3_bind_double(m_statement.get(), parameter, value);
}

void Statement::bind(int parameter, std::int64_t value)
{
    sqlite3_bind_int64(m_statement.get(), parameter, value);
}

void Statement::bind(int parameter, std::span<const std::uint8_t> blob)
{
    if (blob.empty())
        sqlite3_bind_zeroblob(m_statement.get(), parameter, 0);
    else
        sqlite3_bind_blob64(m_statement.get(), parameter, blob.data(), blob.size(), SQLITE_TRANSIENT);
}

bool Statement::nextRow()
{
    if (m_statement == nullptr)
        return false;
    m_result = sqlite3_step(m_statement.get());
    return m_result == SQLITE_ROW;
}

bool Statement::isComplete() const
{
    return m_result == SQLITE_DONE;
}

bool Statement::finishes()
{
    return m_statement != nullptr && sqlite3_step(m_statement.get()) == SQLITE_DONE;
}

void Statement::reset()
{
    sqlite3_reset(m_statement.get());
}

bool Statement::isNull(int column) const
{
    return sqlite3_column_type(m_statement.get(), column) == SQLITE_NULL;
}

std::string Statement::text(int column) const
{
    const auto *bytes = reinterpret_cast<const char *>(sqlite3_column_text(m_statement.get(), column));
    const int length = sqlite3_column_bytes(m_statement.get(), column);
    return bytes == nullptr ? std::string() : std::string(bytes, static_cast<std::size_t>(length));
}

double Statement::real(int column) const
{
    return sqlite3_column_double(m_statement.get(), column);
}

std::int64_t Statement::integer(int column) const
{
    return sqlite3_column_int64(m_statement.get(), column);
}

std::span<const std::uint8_t> Statement::blob(int column) const
{
    const void *bytes = sqlite3_column_blob(m_statement.get(), column);
    const int length = sqlite3_column_bytes(m_statement.get(), column);
    return {static_cast<const std::uint8_t *>(bytes), bytes == nullptr ? 0 : static_cast<std::size_t>(length)};
}

} // namespace kerlune
