#include "bindings/postgresql/Engine.h"
#include "bindings/postgresql/Fault.h"
#include "bindings/postgresql/Plan.h"
#include "bindings/postgresql/Text.h"

PG_FUNCTION_INFO_V1(units_format);
PG_FUNCTION_INFO_V1(units_format_plain);
PG_FUNCTION_INFO_V1(units_format_fraction);
PG_FUNCTION_INFO_V1(units_format_fraction_plain);

enum { MOST_OF_USUAL_RESULT = 400 };

static unsigned count_argument(FunctionCallInfo fcinfo, int index, const char* what) {
  const int32 count = PG_GETARG_INT32(index);
  if (count < 0)
    ereport(ERROR, errcode(ERRCODE_INVALID_PARAMETER_VALUE),
            errmsg("%s must not be negative", what));
  return (unsigned)count;
}

static const char* symbol_argument(FunctionCallInfo fcinfo) {
  const plan* const kept = kept_plan(fcinfo, engine_generation);
  plan* made;
  if (kept != NULL) return kept->type_id;
  made = begin_plan(fcinfo);
  made->type_id = symbol_called(PG_GETARG_TEXT_PP(1));
  made->is_constant = is_constant_argument(fcinfo, 1);
  return made->type_id;
}

static Datum fixed(double value, const char* symbol, unsigned places, bool trim) {
  const trelvon_text type_id = trelvon_string(symbol);
  trelvon_text result;
  WRITE_TEXT(result, MOST_OF_USUAL_RESULT, trelvon_format_fixed, get_engine(), value, places,
             symbol != NULL ? &type_id : NULL, trim);
  return PointerGetDatum(server_text(result));
}

static Datum fractional(double value, const char* symbol, unsigned precision) {
  const trelvon_text type_id = trelvon_string(symbol);
  trelvon_text result;
  WRITE_TEXT(result, MOST_OF_USUAL_RESULT, trelvon_format_fractional, get_engine(), value,
             precision, symbol != NULL ? &type_id : NULL);
  return PointerGetDatum(server_text(result));
}

Datum units_format(PG_FUNCTION_ARGS) {
  return fixed(PG_GETARG_FLOAT8(0), symbol_argument(fcinfo), count_argument(fcinfo, 2, "places"),
               PG_GETARG_BOOL(3));
}

Datum units_format_plain(PG_FUNCTION_ARGS) {
  return fixed(PG_GETARG_FLOAT8(0), NULL, count_argument(fcinfo, 1, "places"), PG_GETARG_BOOL(2));
}

Datum units_format_fraction(PG_FUNCTION_ARGS) {
  return fractional(PG_GETARG_FLOAT8(0), symbol_argument(fcinfo),
                    count_argument(fcinfo, 2, "precision"));
}

Datum units_format_fraction_plain(PG_FUNCTION_ARGS) {
  return fractional(PG_GETARG_FLOAT8(0), NULL, count_argument(fcinfo, 1, "precision"));
}
