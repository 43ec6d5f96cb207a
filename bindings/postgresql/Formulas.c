#include "bindings/postgresql/Engine.h"
#include "bindings/postgresql/Fault.h"
#include "bindings/postgresql/Plan.h"
#include "bindings/postgresql/Text.h"
#include "bindings/postgresql/Variables.h"

PG_FUNCTION_INFO_V1(units_evaluate);
PG_FUNCTION_INFO_V1(units_evaluate_plain);
PG_FUNCTION_INFO_V1(units_explain);
PG_FUNCTION_INFO_V1(units_explain_plain);
PG_FUNCTION_INFO_V1(units_explain_text);
PG_FUNCTION_INFO_V1(units_explain_text_plain);

/* Longer formulas are not repeated in errors. */
enum { MOST_OF_SHOWN = 4000 };

typedef struct {
  trelvon_text formula;
  const char* unit;  // null for a plain number
  variables* variables;
} formula;

static const char* unit_argument(FunctionCallInfo fcinfo) {
  const plan* const kept = kept_plan(fcinfo, engine_generation);
  plan* made;
  if (kept != NULL) return kept->type_id;
  made = begin_plan(fcinfo);
  made->type_id = unit_called(PG_GETARG_TEXT_PP(1));
  made->is_constant = is_constant_argument(fcinfo, 1);
  return made->type_id;
}

/* Formula, unit if the result has one, and variables if there are any. */
static formula formula_arguments(FunctionCallInfo fcinfo, bool is_plain, size_t most) {
  formula read = {{NULL, 0}, NULL, NULL};
  const int next = is_plain ? 1 : 2;
  read.formula = utf8_of(PG_GETARG_TEXT_PP(0), most, "a formula");
  if (!is_plain) read.unit = unit_argument(fcinfo);
  if (PG_NARGS() > next) read.variables = read_variables(PG_GETARG_JSONB_P(next));
  return read;
}

static trelvon_resolver resolver_of(const formula* of) {
  return of->variables != NULL ? resolve_variable : NULL;
}

static trelvon_status evaluate(const formula* of, double* result, trelvon_error** error) {
  const trelvon_resolver resolver = resolver_of(of);
  trelvon_status status;
  *error = NULL;
  do {
    trelvon_error_free(*error);
    CHECK_FOR_INTERRUPTS();
    status = of->unit == NULL
                 ? trelvon_evaluate_unitless(get_engine(), of->formula, resolver, of->variables,
                                             result, error)
                 : trelvon_evaluate(get_engine(), trelvon_string(of->unit), of->formula, resolver,
                                    of->variables, result, error);
  } while (status == TRELVON_CALLBACK && is_cancelled());
  return status;
}

static held* explain(const formula* of) {
  held* const made = hold();
  const trelvon_text unit = trelvon_string(of->unit);
  trelvon_status status;
  do {
    release(made);
    CHECK_FOR_INTERRUPTS();
    status = of->unit == NULL
                 ? trelvon_explain_unitless(get_engine(), of->formula, resolver_of(of),
                                            of->variables, &made->explanation, &made->error)
                 : trelvon_explain(get_engine(), &unit, of->formula, resolver_of(of), of->variables,
                                   &made->explanation, &made->error);
  } while (status == TRELVON_CALLBACK && is_cancelled());
  if (status != TRELVON_OK) refuse(status, made);
  return made;
}

static Datum explanation(const formula* of) {
  held* const made = explain(of);
  trelvon_text json;
  WRITE_TEXT(json, 8192, trelvon_explain_json, made->explanation);
  release(made);
  return jsonb_of(shown_string(json));
}

static char* string_of(const JsonbValue* value) {
  if (value == NULL || value->type != jbvString) return NULL;
  return pnstrdup(value->val.string.val, (size_t)value->val.string.len);
}

/* A text, or the first of an array. */
static char* member(Jsonb* object, const char* name) {
  JsonbValue value;
  if (getKeyJsonValueFromContainer(&object->root, name, (int)strlen(name), &value) == NULL)
    return NULL;
  if (value.type == jbvBinary && JsonContainerIsArray(value.val.binary.data))
    return string_of(getIthJsonbValueFromContainer(value.val.binary.data, 0));
  return string_of(&value);
}

/* What is wrong and what to write instead, or null. */
static char* hint_for(const formula* of) {
  Jsonb* const told = DatumGetJsonbP(explanation(of));
  const char* const sentence = member(told, "sentence");
  const char* const spelling = member(told, "spellings");
  if (sentence == NULL) return NULL;
  return spelling == NULL ? pstrdup(sentence) : psprintf("%s Write: %s", sentence, spelling);
}

static int characters_before(trelvon_text utf8, size_t end) {
  int count = 0;
  size_t i;
  for (i = 0; i < end && i < utf8.size; ++i) count += ((unsigned char)utf8.data[i] & 0xC0) != 0x80;
  return count;
}

static pg_attribute_noreturn() void refuse_formula(const formula* of, trelvon_status status,
                                                   held* failed) {
  char* const message = message_of(failed->error);
  char* hint = NULL;
  size_t begin = 0;
  size_t end = 0;
  const bool has_span = trelvon_error_span(failed->error, &begin, &end) != 0;
  const bool is_shown = has_span && of->formula.size <= MOST_OF_SHOWN;
  release(failed);
  if (status == TRELVON_PARSE && of->formula.size <= MOST_OF_SHOWN) hint = hint_for(of);
  ereport(ERROR, errcode(sqlstate_of(status)), errmsg_internal("%s", message),
          has_span ? errdetail("Bytes %zu to %zu of the formula are refused.", begin, end) : 0,
          hint != NULL ? errhint("%s", hint) : 0,
          is_shown ? internalerrquery(server_string(of->formula)) : 0,
          is_shown ? internalerrposition(characters_before(of->formula, begin) + 1) : 0);
}

static Datum evaluated(FunctionCallInfo fcinfo, bool is_plain) {
  const formula read = formula_arguments(fcinfo, is_plain, MOST_OF_FORMULA);
  double result;
  trelvon_error* error;
  const trelvon_status status = evaluate(&read, &result, &error);
  if (status != TRELVON_OK) refuse_formula(&read, status, hold_error(error));
  PG_RETURN_FLOAT8(result);
}

static Datum explained(FunctionCallInfo fcinfo, bool is_plain) {
  const formula read = formula_arguments(fcinfo, is_plain, MOST_OF_EXPLAINED);
  return explanation(&read);
}

static Datum explained_in_text(FunctionCallInfo fcinfo, bool is_plain) {
  const formula read = formula_arguments(fcinfo, is_plain, MOST_OF_EXPLAINED);
  held* const made = explain(&read);
  trelvon_text told;
  WRITE_TEXT(told, 8192, trelvon_explain_text, made->explanation);
  release(made);
  return PointerGetDatum(cstring_to_text(shown_string(told)));
}

Datum units_evaluate(PG_FUNCTION_ARGS) { return evaluated(fcinfo, false); }
Datum units_evaluate_plain(PG_FUNCTION_ARGS) { return evaluated(fcinfo, true); }
Datum units_explain(PG_FUNCTION_ARGS) { return explained(fcinfo, false); }
Datum units_explain_plain(PG_FUNCTION_ARGS) { return explained(fcinfo, true); }
Datum units_explain_text(PG_FUNCTION_ARGS) { return explained_in_text(fcinfo, false); }
Datum units_explain_text_plain(PG_FUNCTION_ARGS) { return explained_in_text(fcinfo, true); }
