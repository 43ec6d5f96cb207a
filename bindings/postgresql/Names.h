/* Units, symbols and quantities by their names, and the conversions between units. What was found is
   kept for the process, up to a thousand of each. */
#ifndef TRELVON_POSTGRESQL_NAMES_H
#define TRELVON_POSTGRESQL_NAMES_H

#include "bindings/postgresql/Postgres.h"

/* The type id of what a text names, as UTF-8 that ends in a NUL. It stays valid as long as
   `engine_generation` stays the same, which only `begin_lookups` or the setting changes. */
const char* unit_called(const text* name);
const char* symbol_called(const text* name);
const char* quantity_called(const text* name);

/* The conversion between units by type ids of `unit_called`; it stays valid as long. */
const trelvon_conversion* conversion_between(const char* from, const char* to);

/* Call it before the others here. It makes the engine if necessary, and forgets names if there are too
   many. */
void begin_lookups(void);

#endif
