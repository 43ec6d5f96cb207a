/* What no row of the table can say: null pointers, buffers, strides, and resolvers that call back. */
#include <TrelvonUnits/trelvon.h>

#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

static int findings = 0;

#define CHECK(holds) \
  ((holds) ? (void)0 : (void)(++findings, printf("FINDING line %d: %s\n", __LINE__, #holds)))
#define REFUSED(call) CHECK((call) == TRELVON_ARGUMENT)

static trelvon_engine* engine;

static trelvon_text t(const char* text) { return trelvon_string(text); }

static void add(const char* schema) {
  CHECK(trelvon_add_definition(engine, t(schema), NULL, NULL) == TRELVON_OK);
}

static void fill(void) {
  CHECK(trelvon_engine_create(&engine, NULL) == TRELVON_OK);
  add("{\"typeid\":\"m\",\"inherits\":[\"vellamor.unit:unit.primitive-1.0.0\"],\"constants\":"
      "[{\"id\":\"name\",\"value\":\"m\"},{\"id\":\"unitSystem\",\"value\":\"Metric\"}]}");
  add("{\"typeid\":\"half\",\"inherits\":[\"vellamor.unit:unit.derived-1.0.0\"],\"constants\":"
      "[{\"id\":\"name\",\"value\":\"half\"},{\"id\":\"unitSystem\",\"value\":\"Metric\"},"
      "{\"id\":\"parentUnits\",\"value\":{\"m\":1}},{\"id\":\"factor\",\"value\":0.5}]}");
  CHECK(trelvon_build_schemas(engine, NULL) == TRELVON_OK);
}

static void nulls(void) {
  double value = 7;
  size_t size = 9;
  trelvon_error* error = NULL;
  trelvon_list* list = NULL;
  trelvon_load_report* report = NULL;
  trelvon_unit unit;
  const trelvon_text huge = {"", SIZE_MAX};
  REFUSED(trelvon_engine_create(NULL, NULL));
  REFUSED(trelvon_convert(NULL, 1, t("m"), t("m"), &value, NULL));
  REFUSED(trelvon_convert(engine, 1, t("m"), t("m"), NULL, &error));
  CHECK(trelvon_error_status(error) == TRELVON_ARGUMENT && !trelvon_error_span(error, NULL, NULL));
  trelvon_error_free(error);
  REFUSED(trelvon_convert(engine, 1, huge, t("m"), &value, NULL));
  REFUSED(trelvon_evaluate(NULL, t("m"), t("1"), NULL, NULL, &value, NULL));
  REFUSED(trelvon_format_fixed(engine, 1, 0, NULL, 0, NULL, NULL, NULL));
  REFUSED(trelvon_definition(NULL, t("m"), NULL, &size, NULL));
  REFUSED(trelvon_explain_json(NULL, NULL, &size, NULL));
  REFUSED(trelvon_load_report_json(NULL, NULL, &size, NULL));
  REFUSED(trelvon_load_folders(engine, NULL, 1, 0, NULL, NULL));
  REFUSED(trelvon_load_folders_for(engine, NULL, 1, NULL, 0, 0, &report, NULL));
  REFUSED(trelvon_explain_hidden(engine, NULL, huge, NULL, NULL, NULL, NULL));
  REFUSED(trelvon_convert_named(engine, NULL, 1, t("m"), t("m"), &value, NULL));
  REFUSED(trelvon_conversion_create_named(engine, NULL, t("m"), t("m"), NULL, NULL));
  REFUSED(trelvon_names_create(engine, NULL, 1, (trelvon_names**)&list, NULL));
  REFUSED(trelvon_names_find(NULL, t("m"), &list, NULL));
  REFUSED(trelvon_units_with_powers(engine, NULL, 1, &list, NULL));
  REFUSED(trelvon_display_create(NULL, t("{}"), (trelvon_display**)&list, NULL));
  REFUSED(trelvon_display_show(NULL, 1, NULL, &size, NULL));
  REFUSED(trelvon_display_read(NULL, t("1"), &value, NULL));
  REFUSED(trelvon_display_locales(NULL, NULL));
  REFUSED(trelvon_answer_text(NULL, t("m")));
  REFUSED(trelvon_list_unit(NULL, 0, &unit, NULL));
  CHECK(value == 7 && size == 9 && list == NULL && report == NULL);
  CHECK(trelvon_records(engine, TRELVON_UNIT, &list, &error) == TRELVON_OK && error == NULL);
  REFUSED(trelvon_list_unit(list, trelvon_list_count(list), &unit, NULL));
  REFUSED(trelvon_list_factor(list, 0, (trelvon_factor*)&unit, NULL));
  REFUSED(trelvon_list_unit(list, 0, NULL, NULL));
  trelvon_list_free(list);
  CHECK(trelvon_list_count(NULL) == 0 && trelvon_error_message(NULL).size == 0);
  trelvon_engine_free(NULL), trelvon_list_free(NULL), trelvon_names_free(NULL);
  trelvon_error_free(NULL), trelvon_explanation_free(NULL), trelvon_conversion_free(NULL);
}

static void buffers(void) {
  char bytes[8] = "#######";
  size_t size = 3;
  REFUSED(trelvon_format_fixed(engine, 12.5, 2, NULL, 0, bytes, &size, NULL));
  CHECK(size == 5 && strcmp(bytes, "#######") == 0);
  CHECK(trelvon_format_fixed(engine, 12.5, 2, NULL, 0, bytes, &size, NULL) == TRELVON_OK);
  CHECK(strcmp(bytes, "12.50##") == 0);
}

static void displays(void) {
  char bytes[99] = "";
  size_t size = sizeof bytes, begin = 0, end = 0;
  double value = 0;
  trelvon_display* display;
  trelvon_list* locales;
  trelvon_error* error;
  const trelvon_text json = t("{\"places\":1,\"groups\":true,\"locale\":\"de\"}");
  CHECK(trelvon_display_create(engine, t("{\"places\":13}"), &display, NULL) == TRELVON_PRECISION);
  CHECK(trelvon_display_create(engine, json, &display, NULL) == TRELVON_OK);
  CHECK(trelvon_display_show(display, 1234.56, bytes, &size, NULL) == TRELVON_OK);
  CHECK(size == 7 && strcmp(bytes, "1.234,6") == 0);
  CHECK(trelvon_display_read(display, t(bytes), &value, NULL) == TRELVON_OK && value == 1234.6);
  CHECK(trelvon_display_read(display, t(" 1.234"), &value, &error) == TRELVON_PARSE);
  CHECK(trelvon_error_span(error, &begin, &end) && begin == 1 && end == 6 && value == 1234.6);
  trelvon_error_free(error);
  size = sizeof bytes;
  CHECK(trelvon_display_json(display, bytes, &size, NULL) == TRELVON_OK);
  CHECK(size == json.size && memcmp(bytes, json.data, size) == 0);
  size = sizeof bytes;
  CHECK(trelvon_display_read_json(display, t("7"), bytes, &size, NULL) == TRELVON_OK && size == 71);
  CHECK(trelvon_display_unit(display, bytes, &size, NULL) == TRELVON_OK && size == 0);
  CHECK(trelvon_display_locales(&locales, NULL) == TRELVON_OK && trelvon_list_count(locales) > 30);
  trelvon_list_free(locales), trelvon_display_free(display), trelvon_display_free(NULL);
}

static void strides(void) {
  double values[] = {1, 2, 3, 4, 5, 6}, one = 8;
  trelvon_conversion* halves;
  CHECK(trelvon_conversion_create(engine, t("m"), t("half"), &halves, NULL) == TRELVON_OK);
  CHECK(trelvon_conversion_apply(halves, values, 2, values + 1, 2, 3) == TRELVON_OK);
  CHECK(values[0] == 1 && values[1] == 2 && values[3] == 6 && values[5] == 10);
  CHECK(trelvon_conversion_apply(halves, values, 1, values + 1, 1, 5) == TRELVON_OK);
  CHECK(values[1] == 2 && values[2] == 4 && values[5] == 32); /* each after those before it */
  CHECK(trelvon_conversion_apply(halves, values + 1, 1, values, 1, 5) == TRELVON_OK);
  CHECK(values[0] == 4 && values[4] == 64 && values[5] == 32);
  CHECK(trelvon_conversion_apply(halves, values, 1, values, 1, 6) == TRELVON_OK);
  CHECK(values[0] == 8 && values[5] == 64);
  CHECK(trelvon_conversion_apply(halves, &one, 0, values, 1, 6) == TRELVON_OK && values[5] == 16);
  CHECK(trelvon_conversion_apply(halves, NULL, 1, NULL, 1, 0) == TRELVON_OK);
  REFUSED(trelvon_conversion_apply(halves, NULL, 1, values, 1, 1));
  REFUSED(trelvon_conversion_apply(halves, values, 1, values, 0, 2));
  REFUSED(trelvon_conversion_apply(halves, values, 1, values, 1, SIZE_MAX / 8));
  REFUSED(trelvon_conversion_apply(halves, values, SIZE_MAX / 2, values, 1, 3));
  REFUSED(trelvon_conversion_apply(NULL, values, 1, values, 1, 1));
  trelvon_conversion_free(halves);
}

/* Evaluates by the same engine, adds to it, frees its context, and then answers. */
static trelvon_status call_back(void* context, trelvon_text name, trelvon_answer* answer) {
  char digits[32];
  double inner = 0;
  free(context);
  add("{\"typeid\":\"added\",\"inherits\":[\"vellamor.unit:dimension-1.0.0\"]}");
  CHECK(trelvon_evaluate_unitless(engine, t("2 * 3"), NULL, NULL, &inner, NULL) == TRELVON_OK);
  sprintf(digits, "%g", inner + (double)name.size);
  trelvon_answer_text(answer, t("replaced below"));
  return trelvon_answer_text(answer, t(digits));
}

static trelvon_status stay_silent(void* context, trelvon_text name, trelvon_answer* answer) {
  (void)context, (void)name, (void)answer;
  return TRELVON_OK;
}

static trelvon_status refuse_oddly(void* context, trelvon_text name, trelvon_answer* answer) {
  const trelvon_text message = {"a\0b", 3};
  (void)context, (void)name;
  trelvon_answer_text(answer, message);
  return (trelvon_status)15;
}

static void resolvers(void) {
  double value = 0;
  size_t begin = 0, end = 0;
  trelvon_error* error;
  CHECK(trelvon_evaluate_unitless(engine, t("1 + abc"), call_back, malloc(1), &value, &error) ==
        TRELVON_OK);
  CHECK(value == 10 && error == NULL);
  CHECK(trelvon_evaluate_unitless(engine, t("a"), stay_silent, NULL, &value, &error) ==
        TRELVON_CALLBACK);
  trelvon_error_free(error);
  CHECK(trelvon_evaluate_unitless(engine, t("1 + a"), refuse_oddly, NULL, &value, &error) ==
        TRELVON_CALLBACK);
  CHECK(trelvon_error_message(error).size == 3);
  CHECK(memcmp(trelvon_error_message(error).data, "a\0b", 3) == 0);
  CHECK(trelvon_error_span(error, &begin, &end) && begin == 4 && end == 5);
  trelvon_error_free(error);
}

int main(void) {
  fill();
  nulls();
  buffers();
  displays();
  strides();
  resolvers();
  trelvon_engine_free(engine);
  printf("%d findings\n", findings);
  return findings != 0;
}
