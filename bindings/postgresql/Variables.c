#include "bindings/postgresql/Variables.h"

#include "bindings/postgresql/Text.h"

static int compare(trelvon_text one, trelvon_text other) {
  const int order = memcmp(one.data, other.data, Min(one.size, other.size));
  return order != 0 ? order : (one.size > other.size) - (one.size < other.size);
}

static int compare_names(const void* one, const void* other) {
  return compare(((const variable*)one)->name, ((const variable*)other)->name);
}

static trelvon_text text_of(const JsonbValue* value, size_t most) {
  const char* number;
  if (value->type == jbvString)
    return utf8_of_bytes(value->val.string.val, (size_t)value->val.string.len, most,
                         "a variable of the formula");
  if (value->type != jbvNumeric)
    ereport(ERROR, errcode(ERRCODE_INVALID_PARAMETER_VALUE),
            errmsg("a variable of a formula must be a text or a number"));
  number = DatumGetCString(DirectFunctionCall1(numeric_out, NumericGetDatum(value->val.numeric)));
  return trelvon_string(number);
}

static pg_attribute_noreturn() void refuse_all(void) {
  ereport(ERROR, errcode(ERRCODE_INVALID_PARAMETER_VALUE),
          errmsg("variables must be a JSON object"));
}

variables* read_variables(Jsonb* object) {
  variables* const read = palloc0(sizeof *read);
  size_t left = MOST_OF_FORMULA;
  JsonbIterator* each;
  JsonbValue value;
  JsonbIteratorToken token;
  if (!JB_ROOT_IS_OBJECT(object)) refuse_all();
  read->all = palloc_extended(sizeof(variable) * (JB_ROOT_COUNT(object) + 1), MCXT_ALLOC_HUGE);
  each = JsonbIteratorInit(&object->root);
  while ((token = JsonbIteratorNext(&each, &value, true)) != WJB_DONE) {
    variable* const now = &read->all[read->count];
    if (token == WJB_KEY) {
      now->name = text_of(&value, left);
      left -= Min(left, now->name.size);
    } else if (token == WJB_VALUE) {
      now->value = text_of(&value, left);
      left -= Min(left, now->value.size);
      ++read->count;
    }
  }
  qsort(read->all, read->count, sizeof *read->all, compare_names);
  return read;
}

/* With the engine's message for an unknown identifier, cut where messages are cut. */
static trelvon_status refuse_name(trelvon_text name, trelvon_answer* answer) {
  char message[8200];
  const int size = snprintf(message, sizeof message, "Unrecognized identifier: %.*s.",
                            (int)Min(name.size, sizeof message - 100), name.data);
  trelvon_answer_text(answer, (trelvon_text){message, (size_t)size});
  return TRELVON_PARSE;
}

bool is_cancelled(void) {
  return (QueryCancelPending || ProcDiePending) && INTERRUPTS_CAN_BE_PROCESSED();
}

trelvon_status resolve_variable(void* context, trelvon_text name, trelvon_answer* answer) {
  const variables* const known = context;
  size_t begin = 0;
  size_t end = known->count;
  if (is_cancelled()) return TRELVON_CALLBACK;
  while (begin < end) {
    const size_t middle = begin + (end - begin) / 2;
    const int order = compare(name, known->all[middle].name);
    if (order == 0) return trelvon_answer_text(answer, known->all[middle].value);
    if (order < 0)
      end = middle;
    else
      begin = middle + 1;
  }
  return refuse_name(name, answer);
}
