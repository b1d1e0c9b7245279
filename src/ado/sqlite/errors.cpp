#include "ado/sqlite/errors.h"

#include <sqlite3.h>

#include <string_view>

namespace zel::ado::sqlite {

namespace {

Error ofStatement(const std::string& detail, const std::string& statement) {
    const bool noTable = std::string_view(detail).starts_with("no such table");
    return {ErrorKind::Statement, noTable ? errors::noSuchTable : errors::errorsInCommand, detail, statement};
}

Error ofConstraint(int extended, const std::string& detail, const std::string& statement) {
    if (extended == SQLITE_CONSTRAINT_CHECK || extended == SQLITE_CONSTRAINT_DATATYPE)
        return {ErrorKind::Conversion, errors::errorsOccurred, "A value does not fit its column: " + detail, statement};
    return {ErrorKind::Constraint, errors::failed,
            "The row was refused, because it would duplicate or lack a value: " + detail, statement};
}

} // namespace

Error errorOf(sqlite3* database, int code, const std::string& statement) {
    const std::string detail = database != nullptr ? sqlite3_errmsg(database) : sqlite3_errstr(code);
    switch (code & 0xFF) {
    case SQLITE_ERROR:
    case SQLITE_AUTH:
        return ofStatement(detail, statement);
    case SQLITE_BUSY:
    case SQLITE_LOCKED:
        return {ErrorKind::Busy, errors::failed,
                "The database is in use by another user. Nothing was done; please try again.", statement};
    case SQLITE_CONSTRAINT:
        return ofConstraint(code, detail, statement);
    case SQLITE_MISMATCH:
    case SQLITE_TOOBIG:
    case SQLITE_RANGE:
        return {ErrorKind::Conversion, errors::errorsOccurred, "A value does not fit its column: " + detail, statement};
    case SQLITE_READONLY:
    case SQLITE_PERM:
        return {ErrorKind::ReadOnly, errors::failed, "The database is read-only. Nothing was written.", statement};
    case SQLITE_FULL:
        return {ErrorKind::Engine, errors::failed, "The disk is full. Nothing was written.", statement};
    case SQLITE_CANTOPEN:
        return {ErrorKind::Open, errors::failed,
                "The database file, or its journal beside it, could not be opened: " + detail, statement};
    case SQLITE_NOTADB:
    case SQLITE_CORRUPT:
        return {ErrorKind::Engine, errors::failed, "The database file is damaged: " + detail, statement};
    default:
        return {ErrorKind::Engine, errors::failed, "The database failed: " + detail, statement};
    }
}

} // namespace zel::ado::sqlite
