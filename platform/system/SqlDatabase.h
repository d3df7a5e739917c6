// SQLite: a connection, prepared statements and transactions, with errors as the registry reports them.
#pragma once

#include <memory>
#include <sqlite3.h>
#include <string_view>
#include <windows.h>

struct CloseDatabase {
    void operator()(sqlite3* database) const { sqlite3_close(database); }
};
using Database = std::unique_ptr<sqlite3, CloseDatabase>;

// The error code of the Windows interface for a result of SQLite's; ERROR_SUCCESS for rows and their end.
LONG ErrorOf(int result);

// A prepared statement. Parameters count from 1; texts and data that are bound must outlive the last step.
// What is too large to be bound is null, which no column takes and no row has.
class Statement
{
public:
    Statement(sqlite3* database, std::string_view text);
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;
    ~Statement() { sqlite3_finalize(m_statement); }

    Statement& Bind(int parameter, sqlite3_int64 number);
    Statement& Bind(int parameter, std::string_view text);
    Statement& BindData(int parameter, const BYTE* data, DWORD size);

    // SQLITE_ROW, SQLITE_DONE, or an error, of the construction too.
    int Step() { return m_result == SQLITE_OK ? sqlite3_step(m_statement) : m_result; }

    sqlite3_int64 Number(int column) const { return sqlite3_column_int64(m_statement, column); }
    const void* Data(int column) const { return sqlite3_column_blob(m_statement, column); }
    // The size of what Data has returned.
    sqlite3_int64 DataSize(int column) const { return sqlite3_column_bytes(m_statement, column); }

private:
    sqlite3_stmt* m_statement = nullptr;
    int m_result = SQLITE_OK;
};

// Runs statements without parameters or rows.
int Execute(sqlite3* database, const char* text);

// Runs a change as one transaction, which locks the database at its start and is rolled back on an error.
template <class Change> int Transact(sqlite3* database, Change change)
{
    int result = Execute(database, "BEGIN IMMEDIATE");
    if (result != SQLITE_OK)
        return result;
    result = change();
    if (result == SQLITE_OK)
        result = Execute(database, "COMMIT");
    if (result != SQLITE_OK)
        Execute(database, "ROLLBACK");
    return result;
}
