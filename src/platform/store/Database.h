#pragma once

#include "platform/files/WriteFailure.h"
#include "platform/text/Text.h"

#include <cstdint>
#include <memory>
#include <stdexcept>

struct sqlite3;
struct sqlite3_stmt;

/// A database that can't be read or written.
class TOVI_EXPORT DatabaseError : public std::runtime_error
{
public:
    DatabaseError(WriteFailure why, bool isDamaged, const CString& words)
        : std::runtime_error(words), failure(why), damaged(isDamaged)
    {}

    WriteFailure Failure() const { return failure; }
    /// The file is no database, or no longer a whole one.
    bool IsDamaged() const { return damaged; }

private:
    WriteFailure failure;
    bool damaged;
};

/// A database in one file of ours, kept by SQLite, for one thread at a time. What a transaction has
/// written is on the disk when it ends, and a program that is killed amid one leaves none of it.
/// Every operation throws DatabaseError when it fails.
class TOVI_EXPORT Database
{
public:
    class Statement;

    /// Opens the file \p path, which is made for this user alone where it is missing; its folder is
    /// there. It may lie on a file system of the network, and never in a delivered folder. \p
    /// patience is for how many milliseconds others are waited for who write the same.
    explicit Database(const CString& path, int patience = 2000);
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;
    ~Database();

    /// Runs the statements \p sql, which have no values.
    void RunAll(const char* sql);
    /// Runs the one statement \p sql with \p values in the place of its question marks.
    template <class... Value>
    void Run(const char* sql, const Value&... values);
    /// The one statement \p sql with \p values, whose rows are to be read.
    template <class... Value>
    Statement Ask(const char* sql, const Value&... values);

private:
    friend class Statement;

    struct Closing
    {
        void operator()(sqlite3* opened) const;
    };
    std::unique_ptr<sqlite3, Closing> opened;
};

/// Bytes that are no text.
struct Blob
{
    std::string_view bytes;
};

/// A prepared statement of a database that outlives it.
class TOVI_EXPORT Database::Statement
{
public:
    Statement(Database& database, const char* sql);

    /// Sets the value of the question mark \p place, counted from 1.
    void Bind(int place, std::int64_t value);
    void Bind(int place, const CString& text);
    void Bind(int place, Blob blob);

    /// Goes to the next row. False behind the last one.
    bool Next();
    /// What the row has in \p column, counted from 0; 0 or empty for nothing.
    std::int64_t Number(int column) const;
    CString Text(int column) const;

private:
    struct Finalizing
    {
        void operator()(sqlite3_stmt* statement) const;
    };
    /// Throws what \p result of the library means, unless it is a success.
    void Check(int result) const;

    sqlite3* connection;
    std::unique_ptr<sqlite3_stmt, Finalizing> prepared;
};

/// Writes that are all done or none of them: undone at the end of its life unless Commit() was
/// called. Nobody else writes meanwhile.
class TOVI_EXPORT Transaction
{
public:
    explicit Transaction(Database& theDatabase);
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;
    ~Transaction();

    void Commit();

private:
    Database& database;
    bool open = true;
};

template <class... Value>
Database::Statement Database::Ask(const char* sql, const Value&... values)
{
    Statement statement(*this, sql);
    int place = 0;
    (statement.Bind(++place, values), ...);
    return statement;
}

template <class... Value>
void Database::Run(const char* sql, const Value&... values)
{
    Statement statement = Ask(sql, values...);
    while (statement.Next()) {
    }
}
