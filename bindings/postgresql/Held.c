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

static held* begin_holding(held* made) {
  made->callback.func = release_later;
  made->callback.arg = made;
  MemoryContextRegisterResetCallback(CurrentMemoryContext, &made->callback);
  return made;
}

held* hold(void) { return begin_holding(palloc0(sizeof(held))); }

held* hold_error(trelvon_error* error) {
  held* const made = palloc_extended(sizeof *made, MCXT_ALLOC_NO_OOM | MCXT_ALLOC_ZERO);
  if (made == NULL) {
    trelvon_error_free(error);
    ereport(ERROR, errcode(ERRCODE_OUT_OF_MEMORY), errmsg("out of memory"));
  }
  made->error = error;
  return begin_holding(made);
}
