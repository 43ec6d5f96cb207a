/* A table of parameters as C sees it. The engine is freed before the table. */
#include <TrelvonUnits/trelvon.h>

#include <stdio.h>
#include <string.h>

static int findings = 0;
static trelvon_parameters* table;

#define CHECK(holds) \
  ((holds) ? (void)0 : (void)(++findings, printf("FINDING line %d: %s\n", __LINE__, #holds)))
#define DONE(call) CHECK((call) == TRELVON_OK)

static trelvon_text t(const char* text) { return trelvon_string(text); }

static int is(trelvon_text text, const char* expected) {
  return text.size == strlen(expected) && memcmp(text.data, expected, text.size) == 0;
}

typedef trelvon_status (*writer)(const trelvon_parameters*, trelvon_text, char*, size_t*,
                                 trelvon_error**);

static int writes(writer write, const char* name, const char* expected) {
  char bytes[4096];
  trelvon_text text = {bytes, sizeof bytes};
  return write(table, t(name), bytes, &text.size, NULL) == TRELVON_OK && is(text, expected);
}

/* Frees the list. */
static int lists(trelvon_status status, trelvon_list* list, const char* expected) {
  char joined[256] = "";
  size_t i;
  for (i = 0; status == TRELVON_OK && i < trelvon_list_count(list); ++i) {
    trelvon_text text;
    DONE(trelvon_list_text(list, i, &text, NULL));
    strncat(joined, text.data, text.size);
    strcat(joined, ";");
  }
  trelvon_list_free(list);
  return strcmp(joined, expected) == 0;
}

static void fail(trelvon_status status, trelvon_error* error, trelvon_status expected,
                 const char* message) {
  CHECK(status == expected && trelvon_error_status(error) == expected);
  CHECK(is(trelvon_error_message(error), message));
  trelvon_error_free(error);
}

int main(void) {
  trelvon_engine* engine;
  trelvon_error* error;
  trelvon_list* list = NULL;
  double value = 7;
  size_t count = 7;
  trelvon_status status;
  const trelvon_text m = trelvon_string("m"), none = trelvon_string("none");
  DONE(trelvon_engine_create(&engine, NULL));
  DONE(trelvon_add_definition(
      engine,
      t("{\"typeid\":\"m\",\"inherits\":[\"vellamor.unit:unit.primitive-1.0.0\"],\"constants\":"
        "[{\"id\":\"name\",\"value\":\"m\"},{\"id\":\"unitSystem\",\"value\":\"Metric\"}]}"),
      NULL, NULL));
  DONE(trelvon_build_schemas(engine, NULL));
  DONE(trelvon_parameters_create(engine, &table, NULL));
  trelvon_engine_free(engine);

  DONE(trelvon_parameters_set(table, t("w"), t("2"), &m, NULL));
  DONE(trelvon_parameters_set(table, t("area"), t("w * w"), NULL, NULL));
  DONE(trelvon_parameters_set(table, t("ratio"), t("area / w^2 + other"), NULL, NULL));
  DONE(trelvon_parameters_rename(table, t("w"), t("width"), NULL));
  DONE(trelvon_parameters_value(table, t("width"), NULL, &value, NULL));
  CHECK(value == 2);
  DONE(trelvon_parameters_evaluate(table, &count, NULL));
  CHECK(count == 1);
  CHECK(writes(trelvon_parameters_formula, "area", "width * width"));
  CHECK(writes(trelvon_parameters_unit, "width", "m"));
  CHECK(writes(trelvon_parameters_explain_text, "width",
               "width:\n2\n^\nwarning: The result is a plain "
               "number. It is taken to be in `m`.\n= 2 m\n"));
  status = trelvon_parameters_names(table, &list, NULL);
  CHECK(lists(status, list, "area;ratio;width;"));
  status = trelvon_parameters_references(table, t("ratio"), &list, NULL);
  CHECK(lists(status, list, "area;other;width;"));
  status = trelvon_parameters_dependents(table, t("width"), &list, NULL);
  CHECK(lists(status, list, "area;ratio;"));
  status = trelvon_parameters_problems(table, &list, NULL);
  CHECK(lists(status, list, "Parameter ratio refers to other, which is not defined.;"));

  status = trelvon_parameters_value(table, t("ratio"), NULL, &value, &error);
  fail(status, error, TRELVON_PARSE, "Parameter ratio refers to other, which is not defined.");
  status = trelvon_parameters_value(table, t("area"), &none, &value, &error);
  fail(status, error, TRELVON_UNRECOGNIZED, "Could not find unit with typeid none.");
  status = trelvon_parameters_set(table, t("2"), t("1"), NULL, &error);
  fail(status, error, TRELVON_VALIDATION, "Parameter name 2 is not an identifier.");
  status = trelvon_parameters_remove(table, t("w"), &error);
  fail(status, error, TRELVON_UNRECOGNIZED, "Could not find parameter w.");
  CHECK(trelvon_parameters_value(table, t("area"), NULL, NULL, NULL) == TRELVON_ARGUMENT);
  CHECK(trelvon_parameters_set(NULL, t("a"), t("1"), NULL, NULL) == TRELVON_ARGUMENT);
  CHECK(trelvon_parameters_create(NULL, &table, NULL) == TRELVON_ARGUMENT);

  DONE(trelvon_parameters_set(table, t("other"), t("1"), NULL, NULL));
  DONE(trelvon_parameters_reevaluate(table, NULL));
  DONE(trelvon_parameters_value(table, t("ratio"), NULL, &value, NULL));
  CHECK(value == 2);
  DONE(trelvon_parameters_remove(table, t("area"), NULL));
  DONE(trelvon_parameters_set(table, t("gone"), t("area"), NULL, NULL));
  CHECK(writes(trelvon_parameters_explain_json, "gone",
               "{\"parameters\":[{\"name\":\"gone\",\"formula\":\"area\",\"message\":"
               "\"Parameter gone refers to area, which is not defined.\"}]}"));
  trelvon_parameters_free(table), trelvon_parameters_free(NULL);
  printf("%d findings\n", findings);
  return findings != 0;
}
