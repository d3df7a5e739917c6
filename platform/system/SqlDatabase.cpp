#include "SqlDatabase.h"

LONG ErrorOf(int result)
{
    switch (result & 0xFF) {
    case SQLITE_OK:
    case SQLITE_ROW:
    case SQLITE_DONE:
        return ERROR_SUCCESS;
    case SQLITE_PERM:
    case SQLITE_READONLY:
        return ERROR_ACCESS_DENIED;
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return ERROR_BUSY;
    case SQLITE_NOMEM:
        return ERROR_OUTOFMEMORY;
    case SQLITE_FULL:
        return ERROR_DISK_FULL;
    case SQLITE_NOTADB:
        return ERROR_NOT_REGISTRY_FILE;
    case SQLITE_CORRUPT:
    case SQLITE_SCHEMA:
    case SQLITE_ERROR: // a column is missing: another program's file
        return ERROR_BADDB;
    default:
        return ERROR_REGISTRY_IO_FAILED;
    }
}

Statement::Statement(sqlite3* database, std::string_view text)
{
    m_result =
        sqlite3_prepare_v2(database, text.data(), static_cast<int>(text.size()), &m_statement, nullptr);
}

Statement& Statement::Bind(int parameter, sqlite3_int64 number)
{
    sqlite3_bind_int64(m_statement, parameter, number);
    return *this;
}

Statement& Statement::Bind(int parameter, std::string_view text)
{
    sqlite3_bind_text64(m_statement, parameter, text.data(), text.size(), SQLITE_STATIC, SQLITE_UTF8);
    return *this;
}

Statement& Statement::BindData(int parameter, const BYTE* data, DWORD size)
{
    if (size == 0)
        sqlite3_bind_zeroblob(m_statement, parameter, 0);
    else
        sqlite3_bind_blob64(m_statement, parameter, data, size, SQLITE_STATIC);
    return *this;
}

int Execute(sqlite3* database, const char* text)
{
    return sqlite3_exec(database, text, nullptr, nullptr, nullptr);
}
