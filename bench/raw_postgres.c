#include "raw_postgres.h"

#include "raw_rows.h"

#include <libpq-fe.h>
#include <stdio.h>

enum { text_room = 16, most_keys = 8 };

static PGresult* check(PGconn* connection, PGresult* result, ExecStatusType expected) {
    if (PQresultStatus(result) == expected)
        return result;
    fprintf(stderr, "%s\n", PQerrorMessage(connection));
    abort();
}

PGconn* raw_postgres_open(const char* connection_text) {
    PGconn* connection = PQconnectdb(connection_text);
    if (PQstatus(connection) == CONNECTION_OK)
        return connection;
    fprintf(stderr, "%s\n", PQerrorMessage(connection));
    abort();
}

void raw_postgres_close(PGconn* connection) {
    PQfinish(connection);
}

struct raw_rows* raw_postgres_read(PGconn* connection, const char* sql, const int* keys, int key_count) {
    char texts[most_keys][text_room];
    const char* values[most_keys];
    for (int key = 0; key < key_count; ++key) {
        snprintf(texts[key], text_room, "%d", keys[key]);
        values[key] = texts[key];
    }
    PGresult* result =
        check(connection, PQexecParams(connection, sql, key_count, NULL, values, NULL, NULL, 0), PGRES_TUPLES_OK);
    struct raw_rows* rows = calloc(1, sizeof *rows);
    const int row_count = PQntuples(result), columns = PQnfields(result);
    for (int row = 0; row < row_count; ++row)
        for (int column = 0; column < columns; ++column) {
            const char* text = PQgetisnull(result, row, column) ? NULL : PQgetvalue(result, row, column);
            raw_add_cell(rows, text, (size_t)PQgetlength(result, row, column));
        }
    PQclear(result);
    return rows;
}

void raw_postgres_insert_posts(PGconn* connection, const char* sql, int first_key, int count) {
    PQclear(check(connection, PQprepare(connection, "raw_insert", sql, 1, NULL), PGRES_COMMAND_OK));
    for (int row = 0; row < count; ++row) {
        char text[text_room];
        const char* value = text;
        snprintf(text, text_room, "%d", first_key + row);
        PQclear(
            check(connection, PQexecPrepared(connection, "raw_insert", 1, &value, NULL, NULL, 0), PGRES_COMMAND_OK));
    }
    PQclear(check(connection, PQexec(connection, "DEALLOCATE raw_insert"), PGRES_COMMAND_OK));
}
