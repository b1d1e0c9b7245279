#include "raw_kept.h"
#include "raw_postgres.h"
#include "raw_rows.h"

#include <libpq-fe.h>
#include <stdio.h>

enum { text_room = 32, most_parameters = 32 };

static void check(PGconn* connection, const PGresult* result) {
    const ExecStatusType status = PQresultStatus(result);
    if (status == PGRES_COMMAND_OK || status == PGRES_TUPLES_OK)
        return;
    fprintf(stderr, "%s\n", PQerrorMessage(connection));
    abort();
}

void raw_postgres_prepare(PGconn* connection, const char* name, const char* sql) {
    PGresult* result = PQprepare(connection, name, sql, 0, NULL);
    check(connection, result);
    PQclear(result);
}

static const char* text_of(const struct raw_parameter* parameter, char* room) {
    switch (parameter->type) {
    case raw_integer:
        snprintf(room, text_room, "%lld", parameter->integer);
        return room;
    case raw_real:
        snprintf(room, text_room, "%.17g", parameter->real);
        return room;
    case raw_text:
        return parameter->text;
    default:
        return NULL;
    }
}

long long raw_postgres_run(PGconn* connection, const char* name, const struct raw_parameter* parameters, int count,
                           int copied, long* rows_read) {
    char rooms[most_parameters][text_room];
    const char* values[most_parameters];
    for (int place = 0; place < count; ++place)
        values[place] = text_of(parameters + place, rooms[place]);
    PGresult* result = PQexecPrepared(connection, name, count, values, NULL, NULL, 0);
    check(connection, result);
    struct raw_rows* rows = calloc(1, sizeof *rows);
    const int row_count = PQntuples(result), columns = PQnfields(result);
    for (int row = 0; copied && row < row_count; ++row)
        for (int column = 0; column < columns; ++column) {
            const char* text = PQgetisnull(result, row, column) ? NULL : PQgetvalue(result, row, column);
            raw_add_cell(rows, text, (size_t)PQgetlength(result, row, column));
        }
    const long long first = row_count > 0 && columns > 0 ? strtoll(PQgetvalue(result, 0, 0), NULL, 10) : 0;
    *rows_read += row_count;
    PQclear(result);
    raw_free(rows);
    return first;
}
