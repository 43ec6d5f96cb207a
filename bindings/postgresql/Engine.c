#include "bindings/postgresql/Engine.h"

#include "bindings/postgresql/Fault.h"
#include "bindings/postgresql/Files.h"
#include "bindings/postgresql/Text.h"

unsigned engine_generation = 1;
char* engine_bundle = NULL;

static trelvon_engine* engine;
static trelvon_names* names;
static trelvon_names* names_with_codes;
static char* loaded_bundle;
static bool is_stale = true;

void engine_is_stale(void) {
  is_stale = true;
  if (++engine_generation == 0) engine_generation = 1;
}

static void add_catalog(trelvon_engine* to) {
  const char* const path = catalog_path("catalog.bundle");
  held* const failed = hold();
  const trelvon_text bundle = read_catalog(path);
  const trelvon_status status = trelvon_add_bundle(to, bundle, &failed->error);
  if (status == TRELVON_MEMORY) refuse(status, failed);
  if (status != TRELVON_OK)
    ereport(ERROR, errcode(ERRCODE_UNITS_DEFINITIONS),
            errmsg("bundle \"%s\": %s", path, message_of(failed->error)));
}

static void add_bundle_of_site(trelvon_engine* to, const char* path) {
  held* const loaded = hold();
  const trelvon_text bundle = read_whole_file(path);
  const trelvon_status status = trelvon_load_bundle(
      to, bundle, trelvon_string(path), TRELVON_NO_LINTS, &loaded->report, &loaded->error);
  if (status == TRELVON_MEMORY) refuse(status, loaded);
  if (status != TRELVON_OK)
    ereport(ERROR, errcode(ERRCODE_UNITS_DEFINITIONS),
            errmsg("bundle \"%s\": %s", path, message_of(loaded->error)));
  if (trelvon_load_report_errors(loaded->report) != 0) {
    trelvon_text told;
    WRITE_TEXT(told, 4096, trelvon_load_report_text, loaded->report);
    ereport(ERROR, errcode(ERRCODE_UNITS_DEFINITIONS),
            errmsg("bundle \"%s\" has definitions that cannot be used", path),
            errdetail_internal("%s", shown_string(told)));
  }
  release(loaded);
}

static void replace_engine(void) {
  held* const made = hold();
  char* bundle;
  const trelvon_status status = trelvon_engine_create(&made->engine, &made->error);
  if (status != TRELVON_OK) refuse(status, made);
  add_catalog(made->engine);
  if (*engine_bundle != '\0') add_bundle_of_site(made->engine, engine_bundle);
  bundle = MemoryContextStrdup(TopMemoryContext, engine_bundle);
  if (loaded_bundle != NULL) pfree(loaded_bundle);
  loaded_bundle = bundle;
  trelvon_engine_free(engine);
  trelvon_names_free(names);
  trelvon_names_free(names_with_codes);
  engine = made->engine;
  names = names_with_codes = NULL;
  made->engine = NULL;
}

/* Uses a context of its own, so that nothing stays in the context of a query. */
static void replace_engine_in(MemoryContext scratch) {
  const MemoryContext caller = MemoryContextSwitchTo(scratch);
  replace_engine();
  MemoryContextSwitchTo(caller);
  MemoryContextDelete(scratch);
}

const trelvon_engine* get_engine(void) {
  if (!is_stale) return engine;
  if (engine == NULL || strcmp(loaded_bundle, engine_bundle) != 0)
    replace_engine_in(AllocSetContextCreate(CurrentMemoryContext, "trelvonunits definitions",
                                            ALLOCSET_DEFAULT_SIZES));
  is_stale = false;
  return engine;
}

static trelvon_names* new_names(const trelvon_text* mapping) {
  held* const made = hold();
  trelvon_names* kept;
  const trelvon_status status =
      trelvon_names_create(get_engine(), mapping, mapping != NULL, &made->names, &made->error);
  if (status != TRELVON_OK) refuse(status, made);
  kept = made->names;
  made->names = NULL;
  return kept;
}

const trelvon_names* get_names(bool with_codes) {
  get_engine();
  if (!with_codes && names == NULL) names = new_names(NULL);
  if (with_codes && names_with_codes == NULL) {
    const trelvon_text codes = read_whole_file(catalog_path("catalog.codes.json"));
    names_with_codes = new_names(&codes);
  }
  return with_codes ? names_with_codes : names;
}
