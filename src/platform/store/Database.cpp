#include "platform/store/Database.h"

#include "platform/files/FileDescriptor.h"
#include "platform/files/MountTable.h"
#include "platform/files/WriteTarget.h"

#include <fcntl.h>

#include <sqlite3.h>

namespace
{
constexpr mode_t forThisUser = 0600;

/// What \p result of the library means; \p error is the number of the system call that failed.
WriteFailure MeaningOf(int result, int error)
{
    switch (result & 0xff) {
    case SQLITE_FULL:
        return WriteFailure::NoSpace;
    case SQLITE_READONLY:
    case SQLITE_PERM:
        return WriteFailure::NotWritable;
    case SQLITE_IOERR:
    case SQLITE_CANTOPEN: {
        const WriteFailure failure = FailureOf(error);
        return failure == WriteFailure::None ? WriteFailure::Other : failure;
    }
    default:
        return WriteFailure::Other;
    }
}

[[noreturn]] void Throw(sqlite3* connection, int result)
{
    const int kind = result & 0xff;
    throw DatabaseError(MeaningOf(result, sqlite3_system_errno(connection)),
                        kind == SQLITE_NOTADB || kind == SQLITE_CORRUPT,
                        sqlite3_errmsg(connection));
}

/// Makes the file \p path where it is missing: the library would let others read it.
void MakePrivateFile(const CString& path)
{
    WriteTarget target;
    const WriteFailure why = FindWriteTarget(path, IntoDelivery::Refused, target);
    if (why != WriteFailure::None) throw DatabaseError(why, false, path);
    const FileDescriptor file(open(target.path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, forThisUser));
    if (!file.IsOpen()) throw DatabaseError(FailureOf(errno), false, path);
}

/// Programs on several computers share no memory, which write-ahead logging takes.
bool IsOnThisComputer(const CString& path)
{
    const DriveType type = DriveTypeOf(path);
    return type == DriveType::Fixed || type == DriveType::RamDisk || type == DriveType::Removable;
}
} // namespace

void Database::Closing::operator()(sqlite3* connection) const
{
    sqlite3_close_v2(connection);
}

Database::Database(const CString& path, int patience)
{
    MakePrivateFile(path);
    sqlite3* connection = nullptr;
    constexpr int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | SQLITE_OPEN_EXRESCODE;
    const int result = sqlite3_open_v2(path.c_str(), &connection, flags, nullptr);
    opened.reset(connection);
    if (result != SQLITE_OK) Throw(connection, result);
    sqlite3_busy_timeout(connection, patience);
    RunAll(IsOnThisComputer(path) ? "PRAGMA journal_mode = WAL" : "PRAGMA journal_mode = DELETE");
    RunAll("PRAGMA synchronous = FULL");
    RunAll("PRAGMA trusted_schema = OFF");
}

Database::~Database() = default;

void Database::RunAll(const char* sql)
{
    const int result = sqlite3_exec(opened.get(), sql, nullptr, nullptr, nullptr);
    if (result != SQLITE_OK) Throw(opened.get(), result);
}

void Database::Statement::Finalizing::operator()(sqlite3_stmt* statement) const
{
    sqlite3_finalize(statement);
}

Database::Statement::Statement(Database& database, const char* sql)
    : connection(database.opened.get())
{
    sqlite3_stmt* statement = nullptr;
    Check(sqlite3_prepare_v2(connection, sql, -1, &statement, nullptr));
    prepared.reset(statement);
}

void Database::Statement::Check(int result) const
{
    if (result != SQLITE_OK) Throw(connection, result);
}

void Database::Statement::Bind(int place, std::int64_t value)
{
    Check(sqlite3_bind_int64(prepared.get(), place, value));
}

void Database::Statement::Bind(int place, const CString& text)
{
    Check(sqlite3_bind_text64(prepared.get(), place, text.data(), text.size(), SQLITE_TRANSIENT,
                              SQLITE_UTF8));
}

void Database::Statement::Bind(int place, Blob blob)
{
    // Bytes without any are no null.
    const char* const bytes = blob.bytes.empty() ? "" : blob.bytes.data();
    Check(sqlite3_bind_blob64(prepared.get(), place, bytes, blob.bytes.size(), SQLITE_TRANSIENT));
}

bool Database::Statement::Next()
{
    const int result = sqlite3_step(prepared.get());
    if (result != SQLITE_ROW && result != SQLITE_DONE) Throw(connection, result);
    return result == SQLITE_ROW;
}

std::int64_t Database::Statement::Number(int column) const
{
    return sqlite3_column_int64(prepared.get(), column);
}

CString Database::Statement::Text(int column) const
{
    const auto* const bytes = static_cast<const char*>(sqlite3_column_blob(prepared.get(), column));
    const int size = sqlite3_column_bytes(prepared.get(), column);
    return bytes == nullptr ? CString() : CString(bytes, static_cast<std::size_t>(size));
}

Transaction::Transaction(Database& theDatabase) : database(theDatabase)
{
    database.RunAll("BEGIN IMMEDIATE");
}

Transaction::~Transaction()
{
    if (!open) return;
    try {
        database.RunAll("ROLLBACK");
    } catch (const DatabaseError&) {
        // The failure that brought us here has undone it already.
    }
}

void Transaction::Commit()
{
    database.RunAll("COMMIT");
    open = false;
}
