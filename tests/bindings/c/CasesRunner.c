/* Answers the calls of cases.py by the C interface. The arguments are folders of definitions. */
#include "tests/cases/Lines.h"

#include <TrelvonUnits/trelvon.h>

#include <stdint.h>
#include <stdlib.h>
#include <string.h>

static trelvon_engine* engine;
static trelvon_names* names;
static trelvon_error* error;

static trelvon_text text(size_t index) {
  trelvon_text made = {words[index].data, words[index].data ? words[index].size : 1};
  if (index >= word_count) made.size = 0;
  return made;
}
static double number(size_t index) { return strtod(words[index].data, NULL); }
static size_t count(size_t index) { return strtoul(words[index].data, NULL, 10); }

/* Results are kept until the status is known: some in words, between tabs. */
static char results[MOST_BYTES];
static size_t result_sizes[4096], result_count, results_end;

static void add(trelvon_text added) {
  memcpy(results + results_end, added.data, added.size);
  results_end += added.size;
  result_sizes[result_count++] = added.size;
}
static void add_number(double value) {
  char digits[20];
  uint64_t bits;
  memcpy(&bits, &value, sizeof bits);
  sprintf(digits, "%08lx%08lx", (unsigned long)(bits >> 32), (unsigned long)(bits & 0xffffffffu));
  add(trelvon_string(value != value ? "nan" : digits));
}
static void add_count(long value) {
  char digits[24];
  sprintf(digits, "%ld", value);
  add(trelvon_string(digits));
}
static void add_powers(const trelvon_power* powers, size_t size) {
  size_t i;
  for (i = 0; i < size; ++i) add(powers[i].type_id), add_count(powers[i].exponent);
}

static double result;
static trelvon_status give_number(trelvon_status status) {
  if (status == TRELVON_OK) add_number(result);
  return status;
}
static int flag;
static trelvon_status give_flag(trelvon_status status) {
  if (status == TRELVON_OK) add_count(flag);
  return status;
}

/* Each text is asked for twice: for its size, and for its bytes in a buffer that just suffices. */
#define GIVE_TEXT(function, ...)                                                     \
  do {                                                                               \
    static char buffer[MOST_BYTES];                                                  \
    size_t size = 0;                                                                 \
    trelvon_status status = function(__VA_ARGS__, NULL, &size, &error);              \
    if (status == TRELVON_OK) status = function(__VA_ARGS__, buffer, &size, &error); \
    if (status == TRELVON_OK) add((trelvon_text){buffer, size});                     \
    return status;                                                                   \
  } while (0)

/* What a list has, whatever it is. */
static void add_item(const trelvon_list* list, size_t i) {
  trelvon_text item;
  trelvon_dimension dimension;
  trelvon_factor factor;
  trelvon_unit unit;
  trelvon_symbol symbol;
  trelvon_quantity quantity;
  trelvon_name name;
  size_t k;
  if (!trelvon_list_text(list, i, &item, NULL)) add(item);
  if (!trelvon_list_dimension(list, i, &dimension, NULL)) add(dimension.type_id);
  if (!trelvon_list_factor(list, i, &factor, NULL)) {
    add(factor.type_id), add_number(factor.factor);
    add_powers(factor.parents, factor.parent_count);
  }
  if (!trelvon_list_unit(list, i, &unit, NULL)) {
    add(unit.type_id), add(unit.name), add_count(unit.system), add_count(unit.kind);
    add(unit.dimension), add(unit.parent), add_number(unit.offset), add_number(unit.factor);
    add_powers(unit.parents, unit.parent_count);
    add_powers(unit.parent_factors, unit.parent_factor_count);
  }
  if (!trelvon_list_symbol(list, i, &symbol, NULL)) {
    add(symbol.type_id), add(symbol.unit), add_count(symbol.is_composite);
    add_count(symbol.is_prefix), add_count(symbol.has_space), add(symbol.text);
  }
  if (!trelvon_list_quantity(list, i, &quantity, NULL)) {
    add(quantity.type_id), add(quantity.name);
    for (k = 0; k < quantity.unit_count; ++k) add(quantity.units[k]);
  }
  if (!trelvon_list_name(list, i, &name, NULL))
    add(name.text), add(name.unit), add_count(name.kind), add_count(name.is_exact);
}
static trelvon_list* list;
static trelvon_status give_list(trelvon_status status) {
  size_t i;
  if (status != TRELVON_OK) return status;
  for (i = 0; i < trelvon_list_count(list); ++i) add_item(list, i);
  trelvon_list_free(list);
  return status;
}

static const char* const statuses[] = {"OK",        "UNRECOGNIZED", "VALIDATION", "INCOMPATIBLE",
                                       "PRECISION", "PARSE",        "MEMORY",     "FILE",
                                       "CALLBACK",  "ARGUMENT",     "OTHER"};

/* Variables are words NAME=TEXT, or NAME=!STATUS MESSAGE for a resolver that fails. */
static trelvon_status resolve(void* context, trelvon_text name, trelvon_answer* answer) {
  const size_t first = *(const size_t*)context;
  size_t i;
  int status;
  for (i = first; i < word_count; ++i) {
    const char* value = words[i].data + name.size + 1;
    if (strncmp(words[i].data, name.data, name.size) != 0 || value[-1] != '=') continue;
    for (status = 1; status <= TRELVON_OTHER; ++status) {
      const size_t length = strlen(statuses[status]);
      if (value[0] != '!' || strncmp(value + 1, statuses[status], length) != 0) continue;
      trelvon_answer_text(answer, trelvon_string(value + length + 2));
      return (trelvon_status)status;
    }
    return trelvon_answer_text(answer, trelvon_string(value));
  }
  trelvon_answer_text(answer, trelvon_string("no such variable"));
  return TRELVON_CALLBACK;
}
static size_t first_variable;
static trelvon_resolver resolver(size_t first) {
  first_variable = first;
  return first < word_count ? resolve : NULL;
}

/* Calls by what they give. */
#define PLAIN(name, function, ...) \
  static trelvon_status name(void) { return function(__VA_ARGS__, &error); }
#define NUMBER(name, function, ...) \
  static trelvon_status name(void) { return give_number(function(__VA_ARGS__, &result, &error)); }
#define FLAG(name, function, ...) \
  static trelvon_status name(void) { return give_flag(function(__VA_ARGS__, &flag, &error)); }
#define LIST(name, function, ...) \
  static trelvon_status name(void) { return give_list(function(__VA_ARGS__, &list, &error)); }
#define TEXT(name, function, ...) \
  static trelvon_status name(void) { GIVE_TEXT(function, __VA_ARGS__); }

NUMBER(convert, trelvon_convert, engine, number(1), text(2), text(3))
static trelvon_status prepared(void) {
  trelvon_conversion* made = NULL;
  double numbers[4] = {number(3), 0, number(3), 0};
  trelvon_status status = trelvon_conversion_create(engine, text(1), text(2), &made, &error);
  if (status == TRELVON_OK) trelvon_conversion_apply(made, numbers + 2, 0, numbers, 2, 2);
  trelvon_conversion_free(made);
  result = numbers[2];
  return give_number(status);
}
/* Into every other double of a larger array. */
static trelvon_status prepared_array(void) {
  trelvon_conversion* made = NULL;
  double from[MOST_WORDS], to[2 * MOST_WORDS];
  const size_t size = word_count - 3;
  size_t i;
  trelvon_status status = trelvon_conversion_create(engine, text(1), text(2), &made, &error);
  for (i = 0; i < size; ++i) from[i] = number(i + 3);
  if (status == TRELVON_OK) status = trelvon_conversion_apply(made, from, 1, to, 2, size);
  for (i = 0; status == TRELVON_OK && i < size; ++i) add_number(to[2 * i]);
  trelvon_conversion_free(made);
  return status;
}
/* As one number, and by an array of one. */
static trelvon_status convert_named(void) {
  trelvon_conversion* made = NULL;
  double value = number(1);
  trelvon_status status =
      trelvon_conversion_create_named(engine, names, text(2), text(3), &made, NULL);
  if (status == TRELVON_OK) trelvon_conversion_apply(made, &value, 1, &value, 1, 1);
  trelvon_conversion_free(made);
  if (status !=
          trelvon_convert_named(engine, names, number(1), text(2), text(3), &result, &error) ||
      (status == TRELVON_OK && memcmp(&value, &result, sizeof value) != 0))
    exit(3);
  return give_number(status);
}
FLAG(can_convert, trelvon_can_convert, engine, text(1), text(2))
static trelvon_status format_fixed(void) {
  trelvon_text symbol = text(3);
  GIVE_TEXT(trelvon_format_fixed, engine, number(1), (unsigned)count(2),
            symbol.data ? &symbol : NULL, (int)count(4));
}
static trelvon_status format_fractional(void) {
  trelvon_text symbol = text(3);
  GIVE_TEXT(trelvon_format_fractional, engine, number(1), (unsigned)count(2),
            symbol.data ? &symbol : NULL);
}
static trelvon_display* display;
static trelvon_status made_display(void) {
  return trelvon_display_create(engine, text(1), &display, &error);
}
#define OF(make, kind, name, function, ...)                                 \
  kind(name##_of, function, __VA_ARGS__) static trelvon_status name(void) { \
    trelvon_status status = make();                                         \
    return status == TRELVON_OK ? name##_of() : status;                     \
  }
OF(made_display, TEXT, display_show, trelvon_display_show, display, number(2))
OF(made_display, NUMBER, display_read, trelvon_display_read, display, text(2))
OF(made_display, TEXT, display_read_json, trelvon_display_read_json, display, text(2))
OF(made_display, TEXT, display_json, trelvon_display_json, display)
OF(made_display, TEXT, display_unit, trelvon_display_unit, display)
static trelvon_status display_locales(void) {
  return give_list(trelvon_display_locales(&list, &error));
}
NUMBER(evaluate, trelvon_evaluate, engine, text(1), text(2), resolver(3), &first_variable)
NUMBER(evaluate_unitless, trelvon_evaluate_unitless, engine, text(1), resolver(2), &first_variable)
static trelvon_explanation* explanation;
static trelvon_status explained(trelvon_status status) {
  if (status != TRELVON_OK) return status;
  if (strcmp(words[0].data, "explain_tree") == 0) GIVE_TEXT(trelvon_explain_tree, explanation);
  if (strcmp(words[0].data, "explain_json") == 0) GIVE_TEXT(trelvon_explain_json, explanation);
  GIVE_TEXT(trelvon_explain_text, explanation);
}
static trelvon_status explain(void) {
  trelvon_text unit = text(1);
  return explained(trelvon_explain(engine, unit.data ? &unit : NULL, text(2), resolver(3),
                                   &first_variable, &explanation, &error));
}
static trelvon_status explain_hidden(void) {
  trelvon_text unit = text(1);
  return explained(trelvon_explain_hidden(engine, unit.data ? &unit : NULL, text(2), resolver(3),
                                          &first_variable, &explanation, &error));
}
static trelvon_status explain_unitless_hidden(void) {
  return explained(trelvon_explain_unitless_hidden(engine, text(1), resolver(2), &first_variable,
                                                   &explanation, &error));
}
static trelvon_status explain_unitless(void) {
  return explained(trelvon_explain_unitless(engine, text(1), resolver(2), &first_variable,
                                            &explanation, &error));
}
static trelvon_parameters* table;
/* One of the parts of a word, which are separated by "|". */
static trelvon_text part(size_t index, int number) {
  const char* const end = words[index].data + words[index].size;
  trelvon_text made = {words[index].data, words[index].size};
  const char* bar;
  for (;;) {
    bar = memchr(made.data, '|', (size_t)(end - made.data));
    made.size = (size_t)((bar ? bar : end) - made.data);
    if (number-- == 0) return made;
    if (!bar) return trelvon_string("");
    made.data = bar + 1;
  }
}
/* Fills a table by words: "set|NAME|FORMULA|UNIT", "rename|NAME|NAME" or "remove|NAME". */
static trelvon_status made_table(void) {
  trelvon_status status = trelvon_parameters_create(engine, &table, &error);
  size_t i;
  for (i = 3; status == TRELVON_OK && i < word_count; ++i) {
    const trelvon_text name = part(i, 1), other = part(i, 2), unit = part(i, 3);
    status = words[i].data[0] == 's'
                 ? trelvon_parameters_set(table, name, other, unit.size ? &unit : NULL, &error)
             : words[i].data[2] == 'n' ? trelvon_parameters_rename(table, name, other, &error)
                                       : trelvon_parameters_remove(table, name, &error);
  }
  return status;
}
static trelvon_status parameters_value(void) {
  const trelvon_text unit = text(2);
  trelvon_status status = made_table();
  if (status != TRELVON_OK) return status;
  return give_number(
      trelvon_parameters_value(table, text(1), unit.data ? &unit : NULL, &result, &error));
}
static trelvon_status parameters_evaluate(void) {
  size_t evaluated = 0;
  trelvon_status status = made_table();
  if (status == TRELVON_OK) status = trelvon_parameters_evaluate(table, &evaluated, &error);
  if (status == TRELVON_OK) add_count((long)evaluated);
  return status;
}
OF(made_table, TEXT, parameters_formula, trelvon_parameters_formula, table, text(1))
OF(made_table, TEXT, parameters_unit, trelvon_parameters_unit, table, text(1))
OF(made_table, LIST, parameters_names, trelvon_parameters_names, table)
OF(made_table, LIST, parameters_references, trelvon_parameters_references, table, text(1))
OF(made_table, LIST, parameters_dependents, trelvon_parameters_dependents, table, text(1))
OF(made_table, LIST, parameters_problems, trelvon_parameters_problems, table)
OF(made_table, TEXT, parameters_explain_text, trelvon_parameters_explain_text, table, text(1))
OF(made_table, TEXT, parameters_explain_json, trelvon_parameters_explain_json, table, text(1))
LIST(add_definition, trelvon_add_definition, engine, text(1))
PLAIN(build_schemas, trelvon_build_schemas, engine)
TEXT(definition, trelvon_definition, engine, text(1))
LIST(dependencies, trelvon_dependencies, engine, text(1))
FLAG(is_registered, trelvon_is_registered, engine, text(1))
PLAIN(add_folder, trelvon_add_folder, engine, text(1))
PLAIN(add_bundle, trelvon_add_bundle, engine, text(1))
PLAIN(add_bundle_file, trelvon_add_bundle_file, engine, text(1))
static trelvon_load_report* report;
static trelvon_status reported(trelvon_status status) {
  if (status != TRELVON_OK) return status;
  add_count((long)trelvon_load_report_errors(report));
  add_count((long)trelvon_load_report_warnings(report));
  GIVE_TEXT(trelvon_load_report_text, report);
}
/* The words from one on are names of variables; null if there are none. */
static trelvon_text variables[MOST_WORDS];
static size_t variable_count;
static const trelvon_text* variables_from(size_t first) {
  variable_count = 0;
  while (first < word_count) variables[variable_count++] = text(first++);
  return variable_count ? variables : NULL;
}
static trelvon_status load_folder(void) {
  const trelvon_text folder = text(1);
  const trelvon_text* const given = variables_from(3);
  return reported(trelvon_load_folders_for(engine, given, variable_count, &folder, 1,
                                           (unsigned)count(2), &report, &error));
}
static trelvon_status load_text_report(void) {
  const trelvon_text name = text(1), schema = text(2);
  const trelvon_text* const given = variables_from(4);
  return trelvon_load_texts_for(engine, given, variable_count, &name, &schema, 1,
                                (unsigned)count(3), &report, &error);
}
static trelvon_status load_text(void) { return reported(load_text_report()); }
static trelvon_status load_report_json(void) {
  trelvon_status status = load_text_report();
  if (status != TRELVON_OK) return status;
  GIVE_TEXT(trelvon_load_report_json, report);
}
static trelvon_status load_report_sarif(void) {
  trelvon_status status = load_text_report();
  if (status != TRELVON_OK) return status;
  GIVE_TEXT(trelvon_load_report_sarif, report);
}
static trelvon_status load_bundle(void) {
  const trelvon_text* const given = variables_from(4);
  return reported(trelvon_load_bundle_for(engine, given, variable_count, text(1), text(2),
                                          (unsigned)count(3), &report, &error));
}
static trelvon_status check_text(void) {
  return reported(trelvon_check_text(engine, text(1), text(2), &report, &error));
}
static trelvon_kind kind(void) {
  static const char* const kinds[] = {"dimension", "factor", "unit", "symbol", "quantity"};
  int i = 0;
  while (i < 5 && strcmp(words[1].data, kinds[i]) != 0) ++i;
  return (trelvon_kind)i;
}
LIST(record, trelvon_record, engine, kind(), text(2))
LIST(records, trelvon_records, engine, kind())
LIST(primitive_units, trelvon_primitive_units, engine)
static trelvon_status primitive_units_of(void) {
  const trelvon_text dimension = text(1);
  return give_list(
      trelvon_primitive_units_of(engine, dimension.data ? &dimension : NULL, &list, &error));
}
LIST(convertible_units, trelvon_convertible_units, engine, text(1))
static trelvon_status units_with_powers(void) {
  trelvon_power powers[MOST_WORDS];
  size_t i;
  for (i = 0; 2 * i + 2 < word_count; ++i) {
    powers[i].type_id = text(2 * i + 1);
    powers[i].exponent = (int)number(2 * i + 2);
  }
  return give_list(trelvon_units_with_powers(engine, powers, i, &list, &error));
}
LIST(symbols_of, trelvon_symbols_of, engine, text(1))
LIST(quantities_of, trelvon_quantities_of, engine, text(1))
static trelvon_status learn_names(void) {
  const trelvon_text mapping = text(1);
  trelvon_names* learned = NULL;
  trelvon_status status = trelvon_names_create(engine, &mapping, 1, &learned, &error);
  if (status == TRELVON_OK) trelvon_names_free(names), names = learned;
  return status;
}
LIST(find, trelvon_names_find, names, text(1))
LIST(find_best, trelvon_names_find_best, names, text(1))
LIST(find_code, trelvon_names_find_code, names, text(1), text(2))
LIST(suggest, trelvon_names_suggest, names, text(1), count(2))
LIST(completions, trelvon_names_completions, names, text(1), count(2))
LIST(names_of, trelvon_names_of, names, text(1))
TEXT(why_not, trelvon_names_why_not, names, text(1))
TEXT(unambiguous, trelvon_names_unambiguous, names, text(1))
TEXT(local_id, trelvon_local_id, text(1))
LIST(systems, trelvon_names_systems, names)
LIST(codes, trelvon_names_codes, names, text(1), text(2))

#define ROW(name, call) \
  { #name, call }
static const struct {
  const char* name;
  trelvon_status (*call)(void);
} calls[] = {ROW(convert, convert),
             ROW(prepared, prepared),
             ROW(prepared_array, prepared_array),
             ROW(convert_named, convert_named),
             ROW(can_convert, can_convert),
             ROW(format_fixed, format_fixed),
             ROW(format_fractional, format_fractional),
             ROW(display_show, display_show),
             ROW(display_read, display_read),
             ROW(display_read_json, display_read_json),
             ROW(display_json, display_json),
             ROW(display_unit, display_unit),
             ROW(display_locales, display_locales),
             ROW(parameters_value, parameters_value),
             ROW(parameters_evaluate, parameters_evaluate),
             ROW(parameters_formula, parameters_formula),
             ROW(parameters_unit, parameters_unit),
             ROW(parameters_names, parameters_names),
             ROW(parameters_references, parameters_references),
             ROW(parameters_dependents, parameters_dependents),
             ROW(parameters_problems, parameters_problems),
             ROW(parameters_explain_text, parameters_explain_text),
             ROW(parameters_explain_json, parameters_explain_json),
             ROW(evaluate, evaluate),
             ROW(evaluate_unitless, evaluate_unitless),
             ROW(explain, explain),
             ROW(explain_hidden, explain_hidden),
             ROW(explain_unitless_hidden, explain_unitless_hidden),
             ROW(explain_tree, explain),
             ROW(explain_json, explain),
             ROW(explain_unitless, explain_unitless),
             ROW(add_definition, add_definition),
             ROW(build_schemas, build_schemas),
             ROW(definition, definition),
             ROW(dependencies, dependencies),
             ROW(is_registered, is_registered),
             ROW(add_folder, add_folder),
             ROW(add_bundle, add_bundle),
             ROW(add_bundle_file, add_bundle_file),
             ROW(load_folder, load_folder),
             ROW(load_text, load_text),
             ROW(load_bundle, load_bundle),
             ROW(load_report_json, load_report_json),
             ROW(load_report_sarif, load_report_sarif),
             ROW(check_text, check_text),
             ROW(record, record),
             ROW(records, records),
             ROW(primitive_units, primitive_units),
             ROW(primitive_units_of, primitive_units_of),
             ROW(convertible_units, convertible_units),
             ROW(units_with_powers, units_with_powers),
             ROW(symbols_of, symbols_of),
             ROW(quantities_of, quantities_of),
             ROW(learn_names, learn_names),
             ROW(find, find),
             ROW(find_best, find_best),
             ROW(find_code, find_code),
             ROW(suggest, suggest),
             ROW(completions, completions),
             ROW(names_of, names_of),
             ROW(why_not, why_not),
             ROW(unambiguous, unambiguous),
             ROW(local_id, local_id),
             ROW(systems, systems),
             ROW(codes, codes)};

static void print_results(void) {
  size_t i, at = 0;
  for (i = 0; i < result_count; ++i) {
    print_word(results + at, result_sizes[i]);
    at += result_sizes[i];
  }
}

static void print_error(void) {
  const trelvon_text message = trelvon_error_message(error);
  size_t begin, end;
  print_word(message.data, message.size);
  if (trelvon_error_span(error, &begin, &end))
    printf("\t%lu\t%lu", (unsigned long)begin, (unsigned long)end);
}

static int answer(void) {
  size_t i = 0;
  trelvon_status status;
  while (i < sizeof calls / sizeof *calls && strcmp(calls[i].name, words[0].data) != 0) ++i;
  if (i == sizeof calls / sizeof *calls) return 0;
  result_count = results_end = 0;
  status = calls[i].call();
  fputs(statuses[status], stdout);
  if (status == TRELVON_OK)
    print_results();
  else
    print_error();
  putchar('\n');
  trelvon_error_free(error);
  trelvon_explanation_free(explanation), explanation = NULL;
  trelvon_load_report_free(report), report = NULL;
  trelvon_display_free(display), display = NULL;
  trelvon_parameters_free(table), table = NULL;
  return 1;
}

int main(int argc, char** argv) {
  int i;
  if (strcmp(trelvon_version(), TRELVON_VERSION) != 0) return 2;
  if (trelvon_engine_create(&engine, NULL) != TRELVON_OK) return 2;
  for (i = 1; i < argc; ++i)
    if (trelvon_add_folder(engine, trelvon_string(argv[i]), NULL) != TRELVON_OK) return 2;
  if (trelvon_names_create(engine, NULL, 0, &names, NULL) != TRELVON_OK) return 2;
  while (read_line())
    if (!answer()) return 2;
  trelvon_names_free(names);
  trelvon_engine_free(engine);
  return 0;
}
