#include "bindings/c/Engine.h"
#include "bindings/c/Guard.h"
#include "bindings/c/List.h"
#include "bindings/c/Text.h"

#include <TrelvonUnits/ParameterTable.h>

using namespace C;

struct trelvon_parameters {
  explicit trelvon_parameters(const std::shared_ptr<Units::UnitsEngine>& shared)
      : engine(shared), table(*engine) {}

  const std::shared_ptr<const Units::UnitsEngine> engine;
  Units::ParameterTable table;
};

namespace {

using Table = Units::ParameterTable;

template <class Change>
trelvon_status change(trelvon_parameters* parameters, trelvon_error** error, const Change& change) {
  return guard(error, [&] {
    require(parameters);
    change(parameters->table);
  });
}

using Writer = std::string (Table::*)(const std::string& name) const;

trelvon_status written(const trelvon_parameters* parameters, Writer writer, trelvon_text name,
                       Buffer buffer, trelvon_error** error) {
  return guard(error, [&] {
    require(parameters);
    write((parameters->table.*writer)(stringOf(name)), buffer);
  });
}

template <class Names>
trelvon_status listed(const trelvon_parameters* parameters, trelvon_list** list,
                      trelvon_error** error, const Names& names) {
  return guard(error, [&] {
    require(parameters, list);
    *list = listOfTexts(names(parameters->table)).release();
  });
}

std::vector<std::string> messagesOf(const Table& table) {
  std::vector<std::string> messages;
  for (const Units::ParameterProblem& problem : table.problems())
    messages.push_back(problem.message);
  return messages;
}

}  // namespace

trelvon_status trelvon_parameters_create(const trelvon_engine* engine,
                                         trelvon_parameters** parameters, trelvon_error** error) {
  return guard(error, [&] {
    require(engine, parameters);
    *parameters = new trelvon_parameters(engine->units);
  });
}

void trelvon_parameters_free(trelvon_parameters* parameters) { delete parameters; }

trelvon_status trelvon_parameters_set(trelvon_parameters* parameters, trelvon_text name,
                                      trelvon_text formula, const trelvon_text* unit,
                                      trelvon_error** error) {
  return change(parameters, error, [&](Table& table) {
    table.set(stringOf(name), stringOf(formula), unit == nullptr ? "" : stringOf(*unit));
  });
}

trelvon_status trelvon_parameters_rename(trelvon_parameters* parameters, trelvon_text name,
                                         trelvon_text new_name, trelvon_error** error) {
  return change(parameters, error,
                [&](Table& table) { table.rename(stringOf(name), stringOf(new_name)); });
}

trelvon_status trelvon_parameters_remove(trelvon_parameters* parameters, trelvon_text name,
                                         trelvon_error** error) {
  return change(parameters, error, [&](Table& table) { table.remove(stringOf(name)); });
}

trelvon_status trelvon_parameters_reevaluate(trelvon_parameters* parameters,
                                             trelvon_error** error) {
  return change(parameters, error, [](Table& table) { table.reevaluate(); });
}

trelvon_status trelvon_parameters_evaluate(const trelvon_parameters* parameters, size_t* count,
                                           trelvon_error** error) {
  return guard(error, [&] {
    require(parameters, count);
    *count = parameters->table.evaluate();
  });
}

trelvon_status trelvon_parameters_value(const trelvon_parameters* parameters, trelvon_text name,
                                        const trelvon_text* unit, double* value,
                                        trelvon_error** error) {
  return guard(error, [&] {
    require(parameters, value);
    const Table& table = parameters->table;
    *value = unit == nullptr ? table.value(stringOf(name))
                             : table.value(stringOf(name), stringOf(*unit));
  });
}

trelvon_status trelvon_parameters_names(const trelvon_parameters* parameters, trelvon_list** names,
                                        trelvon_error** error) {
  return listed(parameters, names, error, [](const Table& table) { return table.names(); });
}

trelvon_status trelvon_parameters_formula(const trelvon_parameters* parameters, trelvon_text name,
                                          char* buffer, size_t* size, trelvon_error** error) {
  return written(parameters, &Table::formula, name, {buffer, size}, error);
}

trelvon_status trelvon_parameters_unit(const trelvon_parameters* parameters, trelvon_text name,
                                       char* buffer, size_t* size, trelvon_error** error) {
  return written(parameters, &Table::unitTypeId, name, {buffer, size}, error);
}

trelvon_status trelvon_parameters_references(const trelvon_parameters* parameters,
                                             trelvon_text name, trelvon_list** names,
                                             trelvon_error** error) {
  return listed(parameters, names, error,
                [&](const Table& table) { return table.references(stringOf(name)); });
}

trelvon_status trelvon_parameters_dependents(const trelvon_parameters* parameters,
                                             trelvon_text name, trelvon_list** names,
                                             trelvon_error** error) {
  return listed(parameters, names, error,
                [&](const Table& table) { return table.dependents(stringOf(name)); });
}

trelvon_status trelvon_parameters_problems(const trelvon_parameters* parameters,
                                           trelvon_list** messages, trelvon_error** error) {
  return listed(parameters, messages, error, messagesOf);
}

trelvon_status trelvon_parameters_explain_json(const trelvon_parameters* parameters,
                                               trelvon_text name, char* buffer, size_t* size,
                                               trelvon_error** error) {
  return written(parameters, &Table::explainJson, name, {buffer, size}, error);
}

trelvon_status trelvon_parameters_explain_text(const trelvon_parameters* parameters,
                                               trelvon_text name, char* buffer, size_t* size,
                                               trelvon_error** error) {
  return written(parameters, &Table::explainText, name, {buffer, size}, error);
}
