#include "bindings/postgresql/Engine.h"
#include "bindings/postgresql/Fault.h"
#include "bindings/postgresql/Plan.h"
#include "bindings/postgresql/Text.h"

PG_FUNCTION_INFO_V1(units_show);
PG_FUNCTION_INFO_V1(units_read);

enum { MOST_OF_DISPLAY = 1 << 16, MOST_OF_USUAL_TEXT = 400 };

static const trelvon_display* make_display(Jsonb* options, held* made) {
  const char* const json = JsonbToCString(NULL, &options->root, (int)VARSIZE(options));
  const trelvon_text utf8 = utf8_of_bytes(json, strlen(json), MOST_OF_DISPLAY, "a display");
  const trelvon_status status =
      trelvon_display_create(get_engine(), utf8, &made->display, &made->error);
  if (status == TRELVON_VALIDATION || status == TRELVON_PARSE)
    ereport(ERROR, errcode(ERRCODE_INVALID_PARAMETER_VALUE),
            errmsg_internal("%s", message_of(made->error)));
  if (status != TRELVON_OK) refuse(status, made);
  return made->display;
}

/* The plan has its own memory, which holds its display and frees it with the plan. */
static held* holder_of(plan* it, MemoryContext memory) {
  if (it->display == NULL) {
    const MemoryContext caller = MemoryContextSwitchTo(memory);
    it->display = hold();
    MemoryContextSwitchTo(caller);
  }
  release(it->display);
  return it->display;
}

static const trelvon_display* display_argument(FunctionCallInfo fcinfo) {
  const plan* const kept = kept_plan(fcinfo, engine_generation);
  const trelvon_display* display;
  plan* made;
  if (kept != NULL) return kept->display->display;
  made = begin_plan(fcinfo);
  if (!is_constant_argument(fcinfo, 1)) return make_display(PG_GETARG_JSONB_P(1), hold());
  display = make_display(PG_GETARG_JSONB_P(1), holder_of(made, fcinfo->flinfo->fn_mcxt));
  made->is_constant = true;
  return display;
}

Datum units_show(PG_FUNCTION_ARGS) {
  const trelvon_display* const display = display_argument(fcinfo);
  trelvon_text shown;
  WRITE_TEXT(shown, MOST_OF_USUAL_TEXT, trelvon_display_show, display, PG_GETARG_FLOAT8(0));
  return PointerGetDatum(server_text(shown));
}

Datum units_read(PG_FUNCTION_ARGS) {
  const trelvon_display* const display = display_argument(fcinfo);
  const trelvon_text shown = utf8_of(PG_GETARG_TEXT_PP(0), MOST_OF_NAME, "a text that is read");
  held* const failed = hold();
  double value;
  size_t begin;
  size_t end;
  char* message;
  const trelvon_status status = trelvon_display_read(display, shown, &value, &failed->error);
  if (status == TRELVON_OK) PG_RETURN_FLOAT8(value);
  if (!trelvon_error_span(failed->error, &begin, &end)) refuse(status, failed);
  message = message_of(failed->error);
  release(failed);
  ereport(ERROR, errcode(sqlstate_of(status)), errmsg_internal("%s", message),
          errdetail("Bytes %zu to %zu of the text are refused.", begin, end));
}
