/* Finds what names stand for, without keeping it. */
#ifndef TRELVON_POSTGRESQL_FINDING_H
#define TRELVON_POSTGRESQL_FINDING_H

#include "bindings/postgresql/Postgres.h"

/* Each returns a type id in the current memory context, and raises an error if a name stands for
   none or for several. The message for none is the engine's. */

/* By type id, or as UnitNames finds it. */
trelvon_text find_unit(trelvon_text name);

/* By type id, local id, or the text that is shown. A name of no symbol is returned as it is: the engine
   refuses it when its turn comes. */
trelvon_text find_symbol(trelvon_text name);

/* By type id, local id, or name. */
trelvon_text find_quantity(trelvon_text name);

#endif
