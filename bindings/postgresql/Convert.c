#include "bindings/postgresql/Engine.h"
#include "bindings/postgresql/Fault.h"
#include "bindings/postgresql/Plan.h"

PG_FUNCTION_INFO_V1(units_convert);
PG_FUNCTION_INFO_V1(units_can_convert);

static const trelvon_conversion* prepare(FunctionCallInfo fcinfo) {
  plan* const made = begin_plan(fcinfo);
  const char* const from = unit_called(PG_GETARG_TEXT_PP(1));
  const char* const to = unit_called(PG_GETARG_TEXT_PP(2));
  made->conversion = conversion_between(from, to);
  made->is_constant = is_constant_argument(fcinfo, 1) && is_constant_argument(fcinfo, 2);
  return made->conversion;
}

Datum units_convert(PG_FUNCTION_ARGS) {
  const plan* const kept = kept_plan(fcinfo, engine_generation);
  const trelvon_conversion* const conversion = kept != NULL ? kept->conversion : prepare(fcinfo);
  const double from = PG_GETARG_FLOAT8(0);
  double to;
  trelvon_conversion_apply(conversion, &from, 1, &to, 1, 1);
  PG_RETURN_FLOAT8(to);
}

Datum units_can_convert(PG_FUNCTION_ARGS) {
  held* const failed = hold();
  const char* from;
  const char* to;
  int result;
  trelvon_status status;
  begin_lookups();
  from = unit_called(PG_GETARG_TEXT_PP(0));
  to = unit_called(PG_GETARG_TEXT_PP(1));
  status = trelvon_can_convert(get_engine(), trelvon_string(from), trelvon_string(to), &result,
                               &failed->error);
  if (status != TRELVON_OK) refuse(status, failed);
  PG_RETURN_BOOL(result != 0);
}
