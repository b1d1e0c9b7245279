#include "raw_sqlite.h"

#include "raw_rows.h"

#include <sqlite3.h>
#include <stdio.h>

static void check(sqlite3* database, int code, int expected) {
    if (code == expected)
        return;
    fprintf(stderr, "%s\n", sqlite3_errmsg(database));
    abort();
}

static int compare_money(void* unused, int left_length, const void* left, int right_length, const void* right) {
    (void)unused;
    char first[32] = "", second[32] = "";
    memcpy(first, left, (size_t)(left_length < 31 ? left_length : 31));
    memcpy(second, right, (size_t)(right_length < 31 ? right_length : 31));
    const double difference = strtod(first, NULL) - strtod(second, NULL);
    return difference < 0 ? -1 : difference > 0;
}

void raw_sqlite_add_collation(sqlite3* database) {
    check(database, sqlite3_create_collation_v2(database, "ZMONEY", SQLITE_UTF8, NULL, compare_money, NULL), SQLITE_OK);
}

static void run(sqlite3* database, const char* sql) {
    check(database, sqlite3_exec(database, sql, NULL, NULL, NULL), SQLITE_OK);
}

sqlite3* raw_sqlite_open(const char* file, int durable) {
    sqlite3* database = NULL;
    check(database, sqlite3_open_v2(file, &database, SQLITE_OPEN_READWRITE, NULL), SQLITE_OK);
    run(database, durable ? "PRAGMA synchronous=FULL" : "PRAGMA synchronous=OFF");
    run(database, "PRAGMA journal_mode=PERSIST");
    run(database, "PRAGMA cache_size=-32768");
    raw_sqlite_add_collation(database);
    return database;
}

void raw_sqlite_close(sqlite3* database) {
    sqlite3_close(database);
}

struct raw_rows* raw_sqlite_read(sqlite3* database, const char* sql, const int* keys, int key_count) {
    struct raw_rows* rows = calloc(1, sizeof *rows);
    sqlite3_stmt* statement = NULL;
    check(database, sqlite3_prepare_v2(database, sql, -1, &statement, NULL), SQLITE_OK);
    for (int key = 0; key < key_count; ++key)
        check(database, sqlite3_bind_int(statement, key + 1, keys[key]), SQLITE_OK);
    const int columns = sqlite3_column_count(statement);
    int code;
    while ((code = sqlite3_step(statement)) == SQLITE_ROW)
        for (int column = 0; column < columns; ++column) {
            const char* text = (const char*)sqlite3_column_text(statement, column);
            raw_add_cell(rows, text, (size_t)sqlite3_column_bytes(statement, column));
        }
    check(database, code, SQLITE_DONE);
    sqlite3_finalize(statement);
    return rows;
}

void raw_sqlite_insert_posts(sqlite3* database, const char* sql, int first_key, int count) {
    sqlite3_stmt* statement = NULL;
    check(database, sqlite3_prepare_v2(database, sql, -1, &statement, NULL), SQLITE_OK);
    for (int row = 0; row < count; ++row) {
        check(database, sqlite3_bind_int(statement, 1, first_key + row), SQLITE_OK);
        check(database, sqlite3_step(statement), SQLITE_DONE);
        check(database, sqlite3_reset(statement), SQLITE_OK);
    }
    sqlite3_finalize(statement);
}

long raw_cell_count(const struct raw_rows* rows) {
    return rows->count;
}

void raw_free(struct raw_rows* rows) {
    for (long cell = 0; cell < rows->count; ++cell)
        free(rows->cells[cell]);
    free(rows->cells);
    free(rows);
}
