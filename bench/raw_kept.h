#pragma once

#ifdef __cplusplus
extern "C" {
#endif

struct sqlite3;
struct sqlite3_stmt;
struct pg_conn;

enum raw_type { raw_null, raw_integer, raw_real, raw_text };

struct raw_parameter {
    enum raw_type type;
    long long integer;
    double real;
    const char* text;
};

/* Statements prepared once and kept, as a plain program that knows its statements beforehand keeps them. A run reads
   every cell (the server's client library holds them as texts anyway); with `copied` it copies each into a block of its
   own and frees them at its end. Gives the whole number in the first cell, else 0. */

struct sqlite3_stmt* raw_sqlite_prepare(struct sqlite3* database, const char* sql);
long long raw_sqlite_run(struct sqlite3_stmt* statement, const struct raw_parameter* parameters, int count, int copied,
                         long* rows_read);
void raw_sqlite_finalize(struct sqlite3_stmt* statement);

void raw_postgres_prepare(struct pg_conn* connection, const char* name, const char* sql);
long long raw_postgres_run(struct pg_conn* connection, const char* name, const struct raw_parameter* parameters,
                           int count, int copied, long* rows_read);

#ifdef __cplusplus
}
#endif
