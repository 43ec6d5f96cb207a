/* Variables of formulas, from a JSON object of texts and numbers. */
#ifndef TRELVON_POSTGRESQL_VARIABLES_H
#define TRELVON_POSTGRESQL_VARIABLES_H

#include "bindings/postgresql/Postgres.h"

typedef struct {
  trelvon_text name;
  trelvon_text value;
} variable;

typedef struct {
  variable* all; /**< In order of their names. */
  size_t count;
} variables;

/* Reads an object into the current memory context. */
variables* read_variables(Jsonb* object);

/* A resolver, whose context is `variables`. The engine calls it from C++, so it calls nothing of the
   server that may fail. A statement that was cancelled ends here with TRELVON_CALLBACK, since formulas
   whose variables refer to each other may take any time. */
trelvon_status resolve_variable(void* context, trelvon_text name, trelvon_answer* answer);

/* Whether the statement should end, if the server allows it now. */
bool is_cancelled(void);

#endif
