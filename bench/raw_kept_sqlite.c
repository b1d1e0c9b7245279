#include "raw_kept.h"
#include "raw_rows.h"
#include "raw_sqlite.h"

#include <sqlite3.h>
#include <stdio.h>

static void check(sqlite3* database, int code, int expected) {
    if (code == expected)
        return;
    fprintf(stderr, "%s\n", sqlite3_errmsg(database));
    abort();
}

sqlite3_stmt* raw_sqlite_prepare(sqlite3* database, const char* sql) {
    sqlite3_stmt* statement = NULL;
    const int code = sqlite3_prepare_v3(database, sql, -1, SQLITE_PREPARE_PERSISTENT, &statement, NULL);
    check(database, code, SQLITE_OK);
    return statement;
}

static int bind(sqlite3_stmt* statement, int place, const struct raw_parameter* parameter) {
    switch (parameter->type) {
    case raw_integer:
        return sqlite3_bind_int64(statement, place, parameter->integer);
    case raw_real:
        return sqlite3_bind_double(statement, place, parameter->real);
    case raw_text:
        return sqlite3_bind_text(statement, place, parameter->text, -1, SQLITE_STATIC);
    default:
        return sqlite3_bind_null(statement, place);
    }
}

/* Each in the type it has. */
static void read_cell(sqlite3_stmt* statement, int column) {
    switch (sqlite3_column_type(statement, column)) {
    case SQLITE_INTEGER:
        (void)sqlite3_column_int64(statement, column);
        break;
    case SQLITE_FLOAT:
        (void)sqlite3_column_double(statement, column);
        break;
    default:
        (void)sqlite3_column_text(statement, column);
    }
}

long long raw_sqlite_run(sqlite3_stmt* statement, const struct raw_parameter* parameters, int count, int copied,
                         long* rows_read) {
    sqlite3* database = sqlite3_db_handle(statement);
    struct raw_rows* rows = calloc(1, sizeof *rows);
    for (int place = 0; place < count; ++place)
        check(database, bind(statement, place + 1, parameters + place), SQLITE_OK);
    const int columns = sqlite3_column_count(statement);
    long long first = 0;
    int code, any = 0;
    while ((code = sqlite3_step(statement)) == SQLITE_ROW) {
        if (!any)
            first = sqlite3_column_int64(statement, 0);
        for (int column = 0; column < columns; ++column) {
            if (!copied) {
                read_cell(statement, column);
                continue;
            }
            const char* text = (const char*)sqlite3_column_text(statement, column);
            raw_add_cell(rows, text, (size_t)sqlite3_column_bytes(statement, column));
        }
        any = 1;
        ++*rows_read;
    }
    check(database, code, SQLITE_DONE);
    check(database, sqlite3_reset(statement), SQLITE_OK);
    raw_free(rows);
    return first;
}

void raw_sqlite_finalize(sqlite3_stmt* statement) {
    sqlite3_finalize(statement);
}
