/* The engine of this process: made when it is first needed, and again after the setting has changed. */
#ifndef TRELVON_POSTGRESQL_ENGINE_H
#define TRELVON_POSTGRESQL_ENGINE_H

#include "bindings/postgresql/Postgres.h"

/* Changes when nothing that was kept from the engine may be used anymore. Never 0. */
extern unsigned engine_generation;

/* The setting trelvonunits.bundle. */
extern char* engine_bundle;

/* Call it when the setting has changed. The engine is made again when it is next needed. */
void engine_is_stale(void);

const trelvon_engine* get_engine(void);

/* Names without or with the codes of other systems. */
const trelvon_names* get_names(bool with_codes);

#endif
