#pragma once

#include "raw_sqlite.h"

#ifdef __cplusplus
extern "C" {
#endif

struct pg_conn;

struct pg_conn* raw_postgres_open(const char* connection_text);
void raw_postgres_close(struct pg_conn* connection);
struct raw_rows* raw_postgres_read(struct pg_conn* connection, const char* sql, const int* keys, int key_count);
void raw_postgres_insert_posts(struct pg_conn* connection, const char* sql, int first_key, int count);

#ifdef __cplusplus
}
#endif
