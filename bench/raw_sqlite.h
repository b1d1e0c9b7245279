#pragma once

#ifdef __cplusplus
extern "C" {
#endif

struct sqlite3;
struct raw_rows;

/* As this program opens a file: a rollback journal that is kept, every commit on the disk if `durable`. */
struct sqlite3* raw_sqlite_open(const char* file, int durable);
/* The order of money texts, without which the engine does not write a row that has some. */
void raw_sqlite_add_collation(struct sqlite3* database);
void raw_sqlite_close(struct sqlite3* database);

/* Every cell copied into a block of its own. `keys` are bound to ?1, ?2 and so on. */
struct raw_rows* raw_sqlite_read(struct sqlite3* database, const char* sql, const int* keys, int key_count);

/* One prepared insert, `count` times, each its own commit; the key counts up from `first_key`. */
void raw_sqlite_insert_posts(struct sqlite3* database, const char* sql, int first_key, int count);

long raw_cell_count(const struct raw_rows* rows);
void raw_free(struct raw_rows* rows);

#ifdef __cplusplus
}
#endif
