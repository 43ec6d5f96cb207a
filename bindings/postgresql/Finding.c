#include "bindings/postgresql/Finding.h"

#include "bindings/postgresql/Engine.h"
#include "bindings/postgresql/Fault.h"
#include "bindings/postgresql/Text.h"

enum { MOST_SUGGESTIONS = 3 };

/* Whether a type id is one of this kind. If not, `failed` has the engine's error. */
static bool is_record(trelvon_kind kind, trelvon_text type_id, held* failed) {
  const trelvon_status status =
      trelvon_record(get_engine(), kind, type_id, &failed->list, &failed->error);
  if (status != TRELVON_OK && status != TRELVON_UNRECOGNIZED) refuse(status, failed);
  return status == TRELVON_OK;
}

static trelvon_name name_at(const trelvon_list* names, size_t index) {
  trelvon_name name;
  trelvon_list_name(names, index, &name, NULL);
  return name;
}

static void quote(StringInfo to, const char* between, trelvon_text name) {
  if (to->len != 0) appendStringInfoString(to, between);
  appendStringInfo(to, "\"%s\"", shown_string(name));
}

/* What may be meant by a name of no unit, or why an expression of codes is none; or null. */
static char* hint_for(trelvon_text name) {
  StringInfoData texts;
  trelvon_text why;
  size_t i;
  held* const near = hold();
  const trelvon_status status =
      trelvon_names_suggest(get_names(false), name, MOST_SUGGESTIONS, &near->list, &near->error);
  if (status != TRELVON_OK) refuse(status, near);
  initStringInfo(&texts);
  for (i = 0; i < trelvon_list_count(near->list); ++i)
    quote(&texts, " or ", name_at(near->list, i).text);
  release(near);
  if (texts.len != 0) return psprintf("Did you mean %s?", texts.data);
  if (memchr(name.data, ':', name.size) == NULL) return NULL;
  WRITE_TEXT(why, 256, trelvon_names_why_not, get_names(true), name);
  return why.size != 0 ? shown_string(why) : NULL;
}

static pg_attribute_noreturn() void refuse_unknown(trelvon_text name, held* failed) {
  char* const message = message_of(failed->error);
  char* const hint = hint_for(name);
  release(failed);
  ereport(ERROR, errcode(ERRCODE_UNITS_UNRECOGNIZED), errmsg_internal("%s", message),
          hint != NULL ? errhint("%s", hint) : 0);
}

static pg_attribute_noreturn() void refuse_ambiguous(const char* kind, trelvon_text name,
                                                     const char* candidates) {
  ereport(ERROR, errcode(ERRCODE_UNITS_AMBIGUOUS),
          errmsg("%s names more than one %s.", shown_string(name), kind),
          errhint("Write %s.", candidates));
}

static pg_attribute_noreturn() void refuse_ambiguous_unit(trelvon_text name, held* found) {
  StringInfoData candidates;
  size_t i;
  initStringInfo(&candidates);
  for (i = 0; i < trelvon_list_count(found->list); ++i) {
    trelvon_text clear;
    WRITE_TEXT(clear, 256, trelvon_names_unambiguous, get_names(false),
               name_at(found->list, i).unit);
    quote(&candidates, " or ", clear);
  }
  refuse_ambiguous("unit", name, candidates.data);
}

static size_t find_best(trelvon_text name, bool with_codes, held* found) {
  const trelvon_status status =
      trelvon_names_find_best(get_names(with_codes), name, &found->list, &found->error);
  if (status != TRELVON_OK) refuse(status, found);
  return trelvon_list_count(found->list);
}

trelvon_text find_unit(trelvon_text name) {
  held* const as_type_id = hold();
  held* const found = hold();
  trelvon_text type_id = name;
  size_t count;
  if (!is_record(TRELVON_UNIT, name, as_type_id)) {
    count = find_best(name, false, found);
    if (count == 0 && memchr(name.data, ':', name.size) != NULL) {
      release(found);
      count = find_best(name, true, found);
    }
    if (count == 0) refuse_unknown(name, as_type_id);
    if (count > 1) refuse_ambiguous_unit(name, found);
    type_id = name_at(found->list, 0).unit;
  }
  type_id = copied(type_id);
  release(as_type_id);
  release(found);
  return type_id;
}

static bool is_same(trelvon_text one, trelvon_text other) {
  return one.size == other.size && (one.size == 0 || memcmp(one.data, other.data, one.size) == 0);
}

/* What a record is called, apart from its ids. */
static trelvon_text name_of(const trelvon_list* records, size_t index, trelvon_text* type_id) {
  trelvon_symbol symbol;
  trelvon_quantity quantity;
  if (trelvon_list_symbol(records, index, &symbol, NULL) == TRELVON_OK) {
    *type_id = symbol.type_id;
    return symbol.text;
  }
  trelvon_list_quantity(records, index, &quantity, NULL);
  *type_id = quantity.type_id;
  return quantity.name;
}

/* The type ids of records that have this local id, or else of those with this name. */
static List* called(const trelvon_list* records, trelvon_text name) {
  List* by_local_id = NIL;
  List* by_name = NIL;
  size_t i;
  for (i = 0; i < trelvon_list_count(records); ++i) {
    char local_id[256];
    size_t size = sizeof local_id;
    trelvon_text* const type_id = palloc(sizeof *type_id);
    const trelvon_text called = name_of(records, i, type_id);
    if (trelvon_local_id(*type_id, local_id, &size, NULL) == TRELVON_OK &&
        is_same((trelvon_text){local_id, size}, name))
      by_local_id = lappend(by_local_id, type_id);
    if (called.size != 0 && is_same(called, name)) by_name = lappend(by_name, type_id);
  }
  return by_local_id != NIL ? by_local_id : by_name;
}

static trelvon_text find_record(trelvon_kind kind, const char* shown_kind, trelvon_text name) {
  held* const one = hold();
  held* const all = hold();
  List* found;
  trelvon_status status;
  if (is_record(kind, name, one)) {
    release(one);
    return copied(name);
  }
  status = trelvon_records(get_engine(), kind, &all->list, &all->error);
  if (status != TRELVON_OK) refuse(status, all);
  found = called(all->list, name);
  if (found == NIL && kind == TRELVON_SYMBOL) return copied(name);
  if (found == NIL) refuse(TRELVON_UNRECOGNIZED, one);
  if (list_length(found) > 1) {
    StringInfoData candidates;
    ListCell* each;
    initStringInfo(&candidates);
    foreach (each, found) quote(&candidates, " or ", *(const trelvon_text*)lfirst(each));
    refuse_ambiguous(shown_kind, name, candidates.data);
  }
  name = copied(*(const trelvon_text*)linitial(found));
  release(one);
  release(all);
  return name;
}

trelvon_text find_symbol(trelvon_text name) { return find_record(TRELVON_SYMBOL, "symbol", name); }

trelvon_text find_quantity(trelvon_text name) {
  return find_record(TRELVON_QUANTITY, "quantity", name);
}
