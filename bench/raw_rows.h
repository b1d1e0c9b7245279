#pragma once

#include <stdlib.h>
#include <string.h>

/* A result as a plain program keeps it: an array of cells, each cell a block of its own. */
struct raw_rows {
    char** cells;
    long count, room;
};

static inline void raw_add_cell(struct raw_rows* rows, const char* text, size_t length) {
    if (rows->count == rows->room) {
        rows->room = rows->room == 0 ? 1024 : rows->room * 2;
        rows->cells = realloc(rows->cells, (size_t)rows->room * sizeof *rows->cells);
        if (rows->cells == NULL)
            abort();
    }
    char* cell = NULL;
    if (text != NULL) {
        cell = malloc(length + 1);
        if (cell == NULL)
            abort();
        memcpy(cell, text, length);
        cell[length] = '\0';
    }
    rows->cells[rows->count++] = cell;
}
