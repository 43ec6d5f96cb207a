/* Functions that return rows. */
#include "bindings/postgresql/Engine.h"
#include "bindings/postgresql/Fault.h"
#include "bindings/postgresql/Names.h"
#include "bindings/postgresql/Text.h"

PG_FUNCTION_INFO_V1(units_list);
PG_FUNCTION_INFO_V1(units_list_all);
PG_FUNCTION_INFO_V1(units_convertible);
PG_FUNCTION_INFO_V1(units_symbols);
PG_FUNCTION_INFO_V1(units_find);

enum { MOST_COLUMNS = 10 };

typedef struct {
  Datum values[MOST_COLUMNS];
  bool nulls[MOST_COLUMNS];
  int count;
} row;

static void add_null(row* to) { to->nulls[to->count++] = true; }

static void add(row* to, Datum value) {
  to->nulls[to->count] = false;
  to->values[to->count++] = value;
}

static void add_text(row* to, trelvon_text value) { add(to, PointerGetDatum(server_text(value))); }

/* An empty text becomes NULL. */
static void add_id(row* to, trelvon_text value) {
  if (value.size == 0)
    add_null(to);
  else
    add_text(to, value);
}

static void add_local_id(row* to, trelvon_text type_id) {
  trelvon_text local_id;
  WRITE_TEXT(local_id, 128, trelvon_local_id, type_id);
  add_text(to, local_id);
}

static void add_number(row* to, bool has_one, double value) {
  if (has_one)
    add(to, Float8GetDatum(value));
  else
    add_null(to);
}

static void append_power(StringInfo json, trelvon_text type_id, int exponent) {
  appendStringInfoChar(json, json->len == 0 ? '{' : ',');
  escape_json(json, server_string(type_id));
  appendStringInfo(json, ":%d", exponent);
}

static void add_powers(row* to, const trelvon_power* powers, size_t count) {
  StringInfoData json;
  size_t i;
  if (count == 0) {
    add_null(to);
    return;
  }
  initStringInfo(&json);
  for (i = 0; i < count; ++i) append_power(&json, powers[i].type_id, powers[i].exponent);
  appendStringInfoChar(&json, '}');
  add(to, jsonb_of(json.data));
}

static void read_unit(const trelvon_list* list, size_t index, row* to) {
  static const char* const kinds[] = {"primitive", "derived", "absolute"};
  trelvon_unit unit;
  trelvon_list_unit(list, index, &unit, NULL);
  add_text(to, unit.type_id);
  add_local_id(to, unit.type_id);
  add_text(to, unit.name);
  add_text(to, trelvon_string(unit.system == TRELVON_METRIC ? "metric" : "imperial"));
  add_text(to, trelvon_string(kinds[unit.kind]));
  add_id(to, unit.dimension);
  add_number(to, unit.kind == TRELVON_DERIVED, unit.factor);
  add_number(to, unit.kind == TRELVON_ABSOLUTE, unit.offset);
  if (unit.kind == TRELVON_ABSOLUTE)
    add_powers(to, &(trelvon_power){unit.parent, 1}, 1);
  else
    add_powers(to, unit.parents, unit.parent_count);
  add_powers(to, unit.parent_factors, unit.parent_factor_count);
}

static void read_symbol(const trelvon_list* list, size_t index, row* to) {
  trelvon_symbol symbol;
  trelvon_list_symbol(list, index, &symbol, NULL);
  add_text(to, symbol.type_id);
  add_local_id(to, symbol.type_id);
  add_text(to, symbol.unit);
  add_text(to, symbol.text);
  add_text(to, trelvon_string(symbol.is_composite ? "composite"
                              : symbol.is_prefix  ? "prefix"
                                                  : "suffix"));
  add(to, BoolGetDatum(symbol.has_space));
}

static void read_name(const trelvon_list* list, size_t index, row* to) {
  static const char* const kinds[] = {"type id", "local id", "name",
                                      "symbol",  "code",     "expression"};
  trelvon_name name;
  trelvon_list_name(list, index, &name, NULL);
  add_text(to, name.text);
  add_text(to, name.unit);
  add_text(to, trelvon_string(kinds[name.kind]));
  add(to, BoolGetDatum(name.is_exact));
}

typedef void (*reader)(const trelvon_list* list, size_t index, row* to);

static void put_rows(ReturnSetInfo* to, const trelvon_list* list, reader read) {
  const MemoryContext of_rows =
      AllocSetContextCreate(CurrentMemoryContext, "trelvonunits row", ALLOCSET_DEFAULT_SIZES);
  const MemoryContext caller = MemoryContextSwitchTo(of_rows);
  size_t i;
  for (i = 0; i < trelvon_list_count(list); ++i) {
    row now = {.count = 0};
    CHECK_FOR_INTERRUPTS();
    read(list, i, &now);
    tuplestore_putvalues(to->setResult, to->setDesc, now.values, now.nulls);
    MemoryContextReset(of_rows);
  }
  MemoryContextSwitchTo(caller);
  MemoryContextDelete(of_rows);
}

static ReturnSetInfo* begin_rows(FunctionCallInfo fcinfo) {
  InitMaterializedSRF(fcinfo, 0);
  begin_lookups();
  return (ReturnSetInfo*)fcinfo->resultinfo;
}

/* Returns the rows of a list that a call made. */
static Datum give(ReturnSetInfo* to, trelvon_status status, held* made, reader read) {
  if (status != TRELVON_OK) refuse(status, made);
  put_rows(to, made->list, read);
  release(made);
  return (Datum)0;
}

Datum units_list_all(PG_FUNCTION_ARGS) {
  ReturnSetInfo* const rows = begin_rows(fcinfo);
  held* const made = hold();
  return give(rows, trelvon_records(get_engine(), TRELVON_UNIT, &made->list, &made->error), made,
              read_unit);
}

Datum units_list(PG_FUNCTION_ARGS) {
  ReturnSetInfo* const rows = begin_rows(fcinfo);
  const trelvon_text type_id = trelvon_string(quantity_called(PG_GETARG_TEXT_PP(0)));
  held* const found = hold();
  held* const one = hold();
  trelvon_quantity quantity;
  size_t i;
  trelvon_status status =
      trelvon_record(get_engine(), TRELVON_QUANTITY, type_id, &found->list, &found->error);
  if (status != TRELVON_OK) refuse(status, found);
  trelvon_list_quantity(found->list, 0, &quantity, NULL);
  for (i = 0; i < quantity.unit_count; ++i) {
    status = trelvon_record(get_engine(), TRELVON_UNIT, quantity.units[i], &one->list, &one->error);
    give(rows, status, one, read_unit);
  }
  release(found);
  return (Datum)0;
}

Datum units_convertible(PG_FUNCTION_ARGS) {
  ReturnSetInfo* const rows = begin_rows(fcinfo);
  const trelvon_text unit = trelvon_string(unit_called(PG_GETARG_TEXT_PP(0)));
  held* const made = hold();
  return give(rows, trelvon_convertible_units(get_engine(), unit, &made->list, &made->error), made,
              read_unit);
}

Datum units_symbols(PG_FUNCTION_ARGS) {
  ReturnSetInfo* const rows = begin_rows(fcinfo);
  const trelvon_text unit = trelvon_string(unit_called(PG_GETARG_TEXT_PP(0)));
  held* const made = hold();
  return give(rows, trelvon_symbols_of(get_engine(), unit, &made->list, &made->error), made,
              read_symbol);
}

Datum units_find(PG_FUNCTION_ARGS) {
  ReturnSetInfo* const rows = begin_rows(fcinfo);
  const trelvon_text name = utf8_of(PG_GETARG_TEXT_PP(0), MOST_OF_NAME, "a name");
  const bool with_codes = memchr(name.data, ':', name.size) != NULL;
  held* const made = hold();
  return give(rows, trelvon_names_find(get_names(with_codes), name, &made->list, &made->error),
              made, read_name);
}
