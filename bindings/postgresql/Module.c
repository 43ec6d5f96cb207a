#include "bindings/postgresql/Catalog.h"
#include "bindings/postgresql/Engine.h"
#include "bindings/postgresql/Text.h"

PG_MODULE_MAGIC;

PG_FUNCTION_INFO_V1(units_version);

void _PG_init(void);

static void bundle_changed(const char* value, void* extra) {
  (void)value;
  (void)extra;
  engine_is_stale();
}

/* In the server's first process. All others begin with its engine. Where that cannot be made, the
   server starts nevertheless, and calls say why. */
static void make_engine_for_all(void) {
  const MemoryContext caller = CurrentMemoryContext;
  const MemoryContext scratch =
      AllocSetContextCreate(caller, "trelvonunits", ALLOCSET_DEFAULT_SIZES);
  MemoryContextSwitchTo(scratch);
  PG_TRY();
  { get_names(false); }
  PG_CATCH();
  {
    EmitErrorReport();
    FlushErrorState();
  }
  PG_END_TRY();
  MemoryContextSwitchTo(caller);
  MemoryContextDelete(scratch);
}

void _PG_init(void) {
  DefineCustomStringVariable("trelvonunits.bundle",
                             "File with more definitions of units, in addition to the catalog.",
                             NULL, &engine_bundle, "", PGC_SUSET, 0, NULL, bundle_changed, NULL);
  MarkGUCPrefixReserved("trelvonunits");
  if (process_shared_preload_libraries_in_progress) make_engine_for_all();
}

/* The versions that results depend on. */
Datum units_version(PG_FUNCTION_ARGS) {
  (void)fcinfo;
  return jsonb_of(psprintf("{\"extension\": \"%s\", \"library\": \"%s\", \"catalog\": \"%s\"}",
                           EXTENSION_VERSION, trelvon_version(), CATALOG_SHA256));
}
