/* Objects of the library that a memory context owns. An error of the server jumps over the functions
   that made them, and then the reset of the context frees them. */
#ifndef TRELVON_POSTGRESQL_HELD_H
#define TRELVON_POSTGRESQL_HELD_H

#include "bindings/postgresql/Postgres.h"

/* The library writes an object that it makes into the member of its type. */
typedef struct {
  MemoryContextCallback callback;
  trelvon_engine* engine;
  trelvon_error* error;
  trelvon_conversion* conversion;
  trelvon_names* names;
  trelvon_explanation* explanation;
  trelvon_load_report* report;
  trelvon_list* list;
  trelvon_display* display;
} held;

/* Makes an empty one, in the current memory context. */
held* hold(void);

/* Made to hold an error, which is freed at once if there is no memory for that. */
held* hold_error(trelvon_error* error);

/* Frees what is held, sooner than the context would. */
void release(held* it);

#endif
