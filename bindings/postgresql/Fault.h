/* Errors of the library as SQL errors. Their class is TU. */
#ifndef TRELVON_POSTGRESQL_FAULT_H
#define TRELVON_POSTGRESQL_FAULT_H

#include "bindings/postgresql/Held.h"

#define ERRCODE_UNITS MAKE_SQLSTATE('T', 'U', '0', '0', '0')
#define ERRCODE_UNITS_UNRECOGNIZED MAKE_SQLSTATE('T', 'U', '0', '0', '1')
#define ERRCODE_UNITS_AMBIGUOUS MAKE_SQLSTATE('T', 'U', '0', '0', '2')
#define ERRCODE_UNITS_INCOMPATIBLE MAKE_SQLSTATE('T', 'U', '0', '0', '3')
#define ERRCODE_UNITS_PRECISION MAKE_SQLSTATE('T', 'U', '0', '0', '4')
#define ERRCODE_UNITS_FORMULA MAKE_SQLSTATE('T', 'U', '0', '0', '5')
#define ERRCODE_UNITS_DEFINITIONS MAKE_SQLSTATE('T', 'U', '0', '0', '6')

/* The SQLSTATE for a call that failed. */
int sqlstate_of(trelvon_status status);

/* The message of an error in the encoding of the database; a very long one is cut off. */
char* message_of(const trelvon_error* error);

/* Raises the error of a call. */
pg_attribute_noreturn() void refuse(trelvon_status status, held* failed);

#endif
