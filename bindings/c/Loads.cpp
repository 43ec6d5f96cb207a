#include "bindings/c/Engine.h"
#include "bindings/c/Writing.h"

#include <TrelvonUnits/SchemaBundle.h>
#include <TrelvonUnits/SchemaReport.h>
#include <TrelvonUnits/SchemaUtility.h>

using namespace C;

struct trelvon_load_report {
  Schemas::SchemaReport value;
};

namespace {

Schemas::ReportOptions optionsOf(unsigned bits, const trelvon_text* variables,
                                 std::size_t variableCount) {
  if (bits > (TRELVON_NO_LINTS | TRELVON_LEAVE_OUT | TRELVON_STOP_AT_ERROR))
    refuseArgument("There is no such option.");
  Schemas::ReportOptions options;
  options.lint = (bits & TRELVON_NO_LINTS) == 0;
  options.leaveOutWhatCannotBuild = (bits & TRELVON_LEAVE_OUT) != 0;
  options.keepGoing = (bits & TRELVON_STOP_AT_ERROR) == 0;
  if (variables != nullptr || variableCount != 0)
    options.variableNames = stringsOf(variables, variableCount);
  return options;
}

/// Adds to an engine without a report.
template <class Action>
trelvon_status add(trelvon_engine* engine, trelvon_error** error, const Action& action) {
  const auto run = [&] {
    require(engine);
    action(*engine->units);
  };
  return guard(error, run, TRELVON_FILE);
}

/// Makes a report by an action on an engine, const or not.
template <class Engine, class Action>
trelvon_status tell(Engine* engine, trelvon_load_report** report, trelvon_error** error,
                    const Action& action) {
  const auto run = [&] {
    require(engine, report);
    // Before anything is loaded: afterward nothing may fail.
    const auto place = static_cast<trelvon_load_report*>(operator new(sizeof(trelvon_load_report)));
    try {
      *report = new (place) trelvon_load_report{action(*engine->units)};
    } catch (...) {
      operator delete(place);
      throw;
    }
  };
  return guard(error, run, TRELVON_FILE);
}

std::vector<Schemas::NamedText> namedTexts(const trelvon_text* names, const trelvon_text* texts,
                                           std::size_t count) {
  if (count != 0) require(names, texts);
  std::vector<Schemas::NamedText> named;
  for (std::size_t i = 0; i < count; ++i) named.push_back({stringOf(names[i]), stringOf(texts[i])});
  return named;
}

std::vector<std::string> pathsOf(const trelvon_text* paths, std::size_t count) {
  if (count != 0) require(paths);
  std::vector<std::string> all;
  for (std::size_t i = 0; i < count; ++i) all.push_back(pathOf(paths[i]));
  return all;
}

}  // namespace

trelvon_status trelvon_add_folder(trelvon_engine* engine, trelvon_text folder,
                                  trelvon_error** error) {
  return add(engine, error, [&](Units::UnitsEngine& units) {
    Schemas::SchemaUtility::addDefinitionsFromFolder(pathOf(folder), units);
  });
}

trelvon_status trelvon_add_bundle(trelvon_engine* engine, trelvon_text bundle,
                                  trelvon_error** error) {
  return add(engine, error, [&](Units::UnitsEngine& units) {
    Schemas::SchemaBundle::addDefinitionsFromBuffer(viewOf(bundle), units);
  });
}

trelvon_status trelvon_add_bundle_file(trelvon_engine* engine, trelvon_text file,
                                       trelvon_error** error) {
  return add(engine, error, [&](Units::UnitsEngine& units) {
    Schemas::SchemaBundle::addDefinitionsFromFile(pathOf(file), units);
  });
}

trelvon_status trelvon_load_folders(trelvon_engine* engine, const trelvon_text* folders,
                                    size_t count, unsigned options, trelvon_load_report** report,
                                    trelvon_error** error) {
  return trelvon_load_folders_for(engine, nullptr, 0, folders, count, options, report, error);
}

trelvon_status trelvon_load_texts(trelvon_engine* engine, const trelvon_text* names,
                                  const trelvon_text* texts, size_t count, unsigned options,
                                  trelvon_load_report** report, trelvon_error** error) {
  return trelvon_load_texts_for(engine, nullptr, 0, names, texts, count, options, report, error);
}

trelvon_status trelvon_load_bundle(trelvon_engine* engine, trelvon_text bundle,
                                   trelvon_text shown_name, unsigned options,
                                   trelvon_load_report** report, trelvon_error** error) {
  return trelvon_load_bundle_for(engine, nullptr, 0, bundle, shown_name, options, report, error);
}

trelvon_status trelvon_load_folders_for(trelvon_engine* engine, const trelvon_text* variables,
                                        size_t variable_count, const trelvon_text* folders,
                                        size_t count, unsigned options,
                                        trelvon_load_report** report, trelvon_error** error) {
  return tell(engine, report, error, [&](Units::UnitsEngine& units) {
    return Schemas::loadFolders(pathsOf(folders, count), units,
                                optionsOf(options, variables, variable_count));
  });
}

trelvon_status trelvon_load_texts_for(trelvon_engine* engine, const trelvon_text* variables,
                                      size_t variable_count, const trelvon_text* names,
                                      const trelvon_text* texts, size_t count, unsigned options,
                                      trelvon_load_report** report, trelvon_error** error) {
  return tell(engine, report, error, [&](Units::UnitsEngine& units) {
    return Schemas::loadTexts(namedTexts(names, texts, count), units,
                              optionsOf(options, variables, variable_count));
  });
}

trelvon_status trelvon_load_bundle_for(trelvon_engine* engine, const trelvon_text* variables,
                                       size_t variable_count, trelvon_text bundle,
                                       trelvon_text shown_name, unsigned options,
                                       trelvon_load_report** report, trelvon_error** error) {
  return tell(engine, report, error, [&](Units::UnitsEngine& units) {
    return Schemas::loadBundle(viewOf(bundle), stringOf(shown_name), units,
                               optionsOf(options, variables, variable_count));
  });
}

trelvon_status trelvon_check_text(const trelvon_engine* engine, trelvon_text schema,
                                  trelvon_text shown_name, trelvon_load_report** report,
                                  trelvon_error** error) {
  return tell(engine, report, error, [&](const Units::UnitsEngine& units) {
    return Schemas::checkText(viewOf(schema), stringOf(shown_name), units);
  });
}

size_t trelvon_load_report_errors(const trelvon_load_report* report) {
  return report == nullptr ? 0 : report->value.getErrorCount();
}

size_t trelvon_load_report_warnings(const trelvon_load_report* report) {
  return report == nullptr ? 0 : report->value.getWarningCount();
}

trelvon_status trelvon_load_report_json(const trelvon_load_report* report, char* buffer,
                                        size_t* size, trelvon_error** error) {
  return written(report, {buffer, size}, error, &Schemas::SchemaReport::toJson);
}

trelvon_status trelvon_load_report_text(const trelvon_load_report* report, char* buffer,
                                        size_t* size, trelvon_error** error) {
  return written(report, {buffer, size}, error, &Schemas::SchemaReport::toText);
}

trelvon_status trelvon_load_report_sarif(const trelvon_load_report* report, char* buffer,
                                         size_t* size, trelvon_error** error) {
  return written(report, {buffer, size}, error, &Schemas::SchemaReport::toSarif);
}

void trelvon_load_report_free(trelvon_load_report* report) { delete report; }
