#include "bindings/postgresql/Held.h"

void release(held* it) {
  trelvon_engine_free(it->engine);
  trelvon_error_free(it->error);
  trelvon_conversion_free(it->conversion);
  trelvon_names_free(it->names);
  trelvon_explanation_free(it->explanation);
  trelvon_load_report_free(it->report);
  trelvon_list_free(it->list);
  trelvon_display_free(it->display);
  it->engine = NULL;
  it->error = NULL;
  it->conversion = NULL;
  it->names = NULL;
  it->explanation = NULL;
  it->report = NULL;
  it->list = NULL;
  it->display = NULL;
}

static void release_later(void* it) { release(it); }

held* hold(void) {
  held* const made = palloc0(sizeof *made);
  made->callback.func = release_later;
  made->callback.arg = made;
  MemoryContextRegisterResetCallback(CurrentMemoryContext, &made->callback);
  return made;
}
