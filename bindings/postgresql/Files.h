/* Files of definitions, which are read as a whole. */
#ifndef TRELVON_POSTGRESQL_FILES_H
#define TRELVON_POSTGRESQL_FILES_H

#include "bindings/postgresql/Postgres.h"

/* The path of a file that is installed with the extension. */
char* catalog_path(const char* name);

/* Reads a file into the current memory context; the errors name it. */
trelvon_text read_whole_file(const char* path);

/* The same for the catalog, which must be the one that this library was built with: results that are
   kept in an index are those of its definitions. */
trelvon_text read_catalog(const char* path);

#endif
