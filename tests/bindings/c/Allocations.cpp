/// Fails every allocation of every C function, once alone and once with all that follow: the status is
/// then TRELVON_MEMORY, there is an error, the engine is as before, and nothing is left behind.
#include "tests/support/Check.h"
#include "tests/support/Heap.h"
#include "tests/support/Sample.h"

#include <TrelvonUnits/trelvon.h>

#include <functional>

namespace {

using Call = std::function<trelvon_status(trelvon_engine*, trelvon_error**)>;

struct Row {
  std::string name;
  Call call;
  // It may have stored all before a failure. Faults of a definition are exceptions within, for which
  // the language keeps a reserve of memory: then nothing fails.
  bool isLoad = false;
};

trelvon_text text(const std::string& kept) { return {kept.data(), kept.size()}; }

const std::string bundle = bundleOf(sampleSchemas());
const std::string newSchema = derived("new", {"foot", "a parent that is missing"});
const std::string newBundle = bundleOf({derived("new", {"foot"})});
const std::string mapping = R"({"version":1,"codes":{"foot":{"a system of codes":["FOT"]}}})";
const std::string longName = "a type id that is long enough to be allocated";

const trelvon_engine* const empty = [] {
  trelvon_engine* engine = nullptr;
  trelvon_engine_create(&engine, nullptr);
  return engine;
}();

trelvon_engine* makeFilled() {
  trelvon_engine* engine = nullptr;
  trelvon_engine_create(&engine, nullptr);
  trelvon_add_bundle(engine, text(bundle), nullptr);
  return engine;
}

std::string describe(const trelvon_engine* engine) {
  int isNew = 0;
  trelvon_is_registered(engine, trelvon_string("new"), &isNew, nullptr);
  trelvon_list* units = nullptr;
  trelvon_records(engine, TRELVON_UNIT, &units, nullptr);
  const std::size_t count = trelvon_list_count(units);
  trelvon_list_free(units);
  return std::to_string(count) + (isNew ? " with new" : "");
}

const std::string& described() {
  static const std::string text = [] {
    trelvon_engine* engine = makeFilled();
    const std::string all = describe(engine);
    trelvon_engine_free(engine);
    return all;
  }();
  return text;
}

/// Frees what a call has made, whatever came of it.
template <class Made, class Make, class Use>
trelvon_status with(const Make& make, void (*free)(Made*), const Use& use) {
  Made* made = nullptr;
  trelvon_status status = make(&made);
  if (status == TRELVON_OK) status = use(made);
  free(made);
  return status;
}

template <class Writer>
trelvon_status writes(const Writer& writer) {
  static char buffer[1 << 16];
  size_t size = sizeof buffer;
  return writer(buffer, &size);
}

trelvon_status resolve(void*, trelvon_text name, trelvon_answer* answer) {
  const bool isX = name.size == 1 && *name.data == 'x';
  const trelvon_status status =
      trelvon_answer_text(answer, trelvon_string(isX ? "1 ft + 2 in + 3 in + 4 in + 5 in"
                                                     : "a variable that the host does not know"));
  return isX || status != TRELVON_OK ? status : TRELVON_CALLBACK;
}

Row listing(
    const std::string& name,
    const std::function<trelvon_status(trelvon_engine*, trelvon_list**, trelvon_error**)>& list) {
  return {name, [list](trelvon_engine* e, trelvon_error** error) {
            return with<trelvon_list>([&](auto made) { return list(e, made, error); },
                                      trelvon_list_free, [](auto) { return TRELVON_OK; });
          }};
}

Row naming(
    const std::string& name,
    const std::function<trelvon_status(trelvon_names*, trelvon_list**, trelvon_error**)>& list) {
  return listing(name, [list](auto e, auto found, auto error) {
    const trelvon_text codes = text(mapping);
    return with<trelvon_names>(
        [&](auto made) { return trelvon_names_create(e, &codes, 1, made, error); },
        trelvon_names_free, [&](auto names) { return list(names, found, error); });
  });
}

Row explaining(const std::string& formula) {
  return {"explain " + formula, [formula](trelvon_engine* e, trelvon_error** error) {
            const trelvon_text unit = trelvon_string("foot");
            return with<trelvon_explanation>(
                [&](auto made) {
                  return trelvon_explain_hidden(e, &unit, text(formula), resolve, nullptr, made,
                                                error);
                },
                trelvon_explanation_free,
                [&](auto made) {
                  return writes([&](auto bytes, auto size) {
                    return trelvon_explain_json(made, bytes, size, error);
                  });
                });
          }};
}

Row reporting(const std::string& name,
              const std::function<trelvon_status(trelvon_engine*, trelvon_load_report**,
                                                 trelvon_error**)>& load) {
  return {name,
          [load](trelvon_engine* e, trelvon_error** error) {
            return with<trelvon_load_report>(
                [&](auto made) { return load(e, made, error); }, trelvon_load_report_free,
                [&](auto made) {
                  return writes([&](auto bytes, auto size) {
                    return trelvon_load_report_json(made, bytes, size, error);
                  });
                });
          },
          true};
}

Row tabling(const std::string& name,
            const std::function<trelvon_status(trelvon_parameters*, trelvon_error**)>& use) {
  return {"parameters_" + name, [=](trelvon_engine* e, trelvon_error** error) {
            return with<trelvon_parameters>(
                [&](auto made) { return trelvon_parameters_create(e, made, error); },
                trelvon_parameters_free,
                [&](auto made) {
                  const trelvon_status status = trelvon_parameters_set(
                      made, trelvon_string("width"), trelvon_string("2 ft + x"), nullptr, error);
                  return status == TRELVON_OK ? use(made, error) : status;
                });
          }};
}

Row evaluating(const std::string& formula, trelvon_resolver resolver) {
  return {"evaluate " + formula, [=](trelvon_engine* e, trelvon_error** error) {
            double value = 0;
            return trelvon_evaluate(e, trelvon_string("foot"), text(formula), resolver, nullptr,
                                    &value, error);
          }};
}

std::vector<Row> rows() {
  const auto t = trelvon_string;
  std::vector<Row> all = {
      {"engine_create",
       [](auto, auto error) {
         return with<trelvon_engine>([&](auto made) { return trelvon_engine_create(made, error); },
                                     trelvon_engine_free, [](auto) { return TRELVON_OK; });
       }},
      {"convert",
       [=](auto e, auto error) {
         double value = 0;
         return trelvon_convert(e, 1, text(longName), t("inch"), &value, error);
       }},
      {"conversion",
       [=](auto e, auto error) {
         return with<trelvon_conversion>(
             [&](auto made) {
               return trelvon_conversion_create(e, t("foot"), t("inch"), made, error);
             },
             trelvon_conversion_free, [](auto) { return TRELVON_OK; });
       }},
      {"format_fixed",
       [=](auto e, auto error) {
         const trelvon_text symbol = t("x:feetAndInches-1");
         return writes([&](auto bytes, auto size) {
           return trelvon_format_fixed(e, 1e200, 12, &symbol, 0, bytes, size, error);
         });
       }},
      {"definition",
       [=](auto e, auto error) {
         return writes([&](auto bytes, auto size) {
           return trelvon_definition(e, t("height"), bytes, size, error);
         });
       }},
      {"null", [](auto, auto error) { return trelvon_build_schemas(nullptr, error); }},
      {"add_bundle", [=](auto e, auto error) { return trelvon_add_bundle(e, t("no"), error); }},
      {"add_bundle_file",
       [=](auto e, auto error) { return trelvon_add_bundle_file(e, text(longName), error); }},
      {"add_folder",
       [=](auto e, auto error) { return trelvon_add_folder(e, text(longName), error); }},
      {"display",
       [=](auto e, auto error) {
         return with<trelvon_display>(
             [&](auto made) {
               return trelvon_display_create(e, t(R"({"symbol":"x:feetAndInches-1"})"), made,
                                             error);
             },
             trelvon_display_free,
             [&](auto made) {
               double value = 0;
               const auto status = writes([&](auto bytes, auto size) {
                 return trelvon_display_show(made, 1e200, bytes, size, error);
               });
               return status == TRELVON_OK
                          ? trelvon_display_read(made, text(longName), &value, error)
                          : status;
             });
       }},
      listing("dependencies",
              [=](auto e, auto list, auto error) {
                return trelvon_dependencies(e, t("height"), list, error);
              }),
      listing("add_definition",
              [](auto e, auto list, auto error) {
                return trelvon_add_definition(e, text(newSchema), list, error);
              }),
      listing("primitive_units_of",
              [=](auto e, auto list, auto error) {
                const trelvon_text length = t("length");
                return trelvon_primitive_units_of(e, &length, list, error);
              }),
      listing("units_with_powers",
              [=](auto e, auto list, auto error) {
                const trelvon_power power = {t("inch"), 1};
                return trelvon_units_with_powers(e, &power, 1, list, error);
              }),
      reporting("load_texts",
                [=](auto e, auto made, auto error) {
                  const trelvon_text name = text(longName), schema = text(newSchema);
                  return trelvon_load_texts_for(e, &name, 1, &name, &schema, 1, 0, made, error);
                }),
      reporting("load_bundle",
                [=](auto e, auto made, auto error) {
                  return trelvon_load_bundle(e, text(newBundle), t("bundle"), 0, made, error);
                }),
      reporting("check_text",
                [=](auto e, auto made, auto error) {
                  return trelvon_check_text(e, text(newSchema), text(longName), made, error);
                }),
      naming("find", [=](auto n, auto list,
                         auto error) { return trelvon_names_find(n, t("Foot"), list, error); }),
      naming("suggest",
             [=](auto n, auto list, auto error) {
               return trelvon_names_suggest(n, t("fooot"), 3, list, error);
             }),
      naming("convert_named",
             [=](auto n, auto, auto error) {
               double value = 0;
               return trelvon_convert_named(empty, n, 1, text(longName), t("in"), &value, error);
             }),
      naming("conversion_create_named",
             [=](auto n, auto, auto error) {
               return with<trelvon_conversion>(
                   [&](auto made) {
                     return trelvon_conversion_create_named(empty, n, t("foot"), t("inch"), made,
                                                            error);
                   },
                   trelvon_conversion_free, [](auto) { return TRELVON_OK; });
             }),
      naming("codes",
             [=](auto n, auto list, auto error) {
               return trelvon_names_codes(n, t("foot"), t("a system of codes"), list, error);
             }),
      naming("why_not", [=](auto n, auto, auto error) {
        return writes([&](auto bytes, auto size) {
          return trelvon_names_why_not(n, text(longName), bytes, size, error);
        });
      })};
  all.push_back(tabling("rename", [=](auto table, auto error) {
    return trelvon_parameters_rename(table, t("width"), text(longName), error);
  }));
  all.push_back(tabling("explain_json", [=](auto table, auto error) {
    return writes([&](auto bytes, auto size) {
      return trelvon_parameters_explain_json(table, t("width"), bytes, size, error);
    });
  }));
  for (const trelvon_kind kind :
       {TRELVON_DIMENSION, TRELVON_FACTOR, TRELVON_UNIT, TRELVON_SYMBOL, TRELVON_QUANTITY})
    all.push_back(listing("records", [=](auto e, auto list, auto error) {
      return trelvon_records(e, kind, list, error);
    }));
  for (const std::string formula : {"1 ft + x * 2", "1 ft + (x", "x + unknown", "1 / (x - x)"}) {
    all.push_back(evaluating(formula, resolve));
    all.push_back(explaining(formula));
  }
  all.push_back(evaluating("1 ft + unknown", nullptr));
  return all;
}

/// Runs a row on a new engine; returns whether an allocation failed.
bool failOnce(const Row& row, trelvon_status expected, long index, bool andAllThatFollow) {
  const std::string where = row.name + ", allocation " + std::to_string(index);
  const long blocks = heap::liveBlocks();
  trelvon_engine* engine = makeFilled();
  trelvon_error* error = nullptr;
  heap::fail(index, andAllThatFollow);
  const trelvon_status status = row.call(engine, &error);
  heap::succeed();
  const bool failed = heap::hasFailed();
  check(status == TRELVON_MEMORY ? failed : status == expected, where, ": status ", status);
  check(!failed || status != TRELVON_OK || row.isLoad, where, ": succeeds");
  check((status == TRELVON_OK) == (error == nullptr), where, ": error");
  check(trelvon_error_status(error) == status, where, ": the error has another status");
  trelvon_error_free(error);
  if (failed) check(row.isLoad || describe(engine) == described(), where, ": the engine changed");
  trelvon_engine_free(engine);
  check(heap::liveBlocks() == blocks, where, ": blocks are left");
  return failed;
}

}  // namespace

int main() {
  described();
  long total = 0;
  for (const Row& row : rows()) {
    trelvon_engine* engine = makeFilled();
    const trelvon_status expected = row.call(engine, nullptr);
    trelvon_engine_free(engine);
    long index = 0;
    for (bool failed = true; failed; ++index) {
      failed = failOnce(row, expected, index, false);
      if (failOnce(row, expected, index, true)) failed = true;
    }
    report(index - 1, " allocations: ", row.name);
    total += index - 1;
  }
  check(total > 0, "nothing allocates");
  return verdict();
}
