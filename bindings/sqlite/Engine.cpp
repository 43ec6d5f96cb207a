#include "bindings/sqlite/Engine.h"

#include "bindings/sqlite/Fault.h"

#include <fstream>
#include <iterator>
#include <vector>

namespace Sql {

namespace {

constexpr std::size_t mostSuggestions = 3;

std::string readFile(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw Fault{"failed to open codes of units: " + path};
  return {std::istreambuf_iterator<char>(file), {}};
}

std::string inQuotes(std::string_view text) { return '"' + std::string(text) + '"'; }

[[noreturn]] void refuseAmbiguous(std::string_view text, const std::string& kind,
                                  const std::vector<std::string>& candidates) {
  std::string message = inQuotes(text) + " names more than one " + kind + ". Write one of: ";
  for (const std::string& candidate : candidates)
    message += (&candidate == &candidates.front() ? "" : ", ") + inQuotes(candidate);
  throw Fault{message + '.'};
}

trelvon_name nameAt(const Owned<trelvon_list>& names, std::size_t index) {
  trelvon_name name;
  call(trelvon_list_name, names.get(), index, &name);
  return name;
}

bool holds(const trelvon_engine* engine, trelvon_kind kind, std::string_view typeId) {
  trelvon_list* record = nullptr;
  const trelvon_status status = trelvon_record(engine, kind, textOf(typeId), &record, nullptr);
  trelvon_list_free(record);
  if (status != TRELVON_OK && status != TRELVON_UNRECOGNIZED) refuse(status, nullptr);
  return status == TRELVON_OK;
}

/// The engine's message about something that it does not have.
std::string unknown(const trelvon_engine* engine, trelvon_kind kind, std::string_view typeId) {
  try {
    make<trelvon_list>(trelvon_record, engine, kind, textOf(typeId));
  } catch (const Fault& fault) {
    return fault.message;
  }
  return {};
}

}  // namespace

Engine::Engine(const Catalog& catalog) : engine_(make<trelvon_engine>(trelvon_engine_create)) {
  try {
    call(trelvon_add_bundle_file, engine_.get(), textOf(catalog.bundle));
  } catch (const Fault& fault) {
    throw Fault{fault.message + ": " + catalog.bundle};
  }
  codes_ = readFile(catalog.codes);
}

const trelvon_names* Engine::names() {
  const trelvon_text codes = textOf(codes_);
  if (names_ == nullptr)
    names_ = make<trelvon_names>(trelvon_names_create, engine_.get(), &codes, std::size_t{1});
  return names_.get();
}

void Engine::refuseUnit(std::string_view text) {
  std::string message = unknown(engine_.get(), TRELVON_UNIT, text);
  const auto near =
      make<trelvon_list>(trelvon_names_suggest, names(), textOf(text), mostSuggestions);
  const std::size_t count = trelvon_list_count(near.get());
  for (std::size_t index = 0; index < count; ++index)
    message += (index == 0 ? " Did you mean " : " or ") +
               inQuotes(viewOf(nameAt(near, index).text)) + (index + 1 == count ? "?" : "");
  if (count == 0 && text.find(':') != std::string_view::npos)
    message += ' ' + write(trelvon_names_why_not, names(), textOf(text));
  throw Fault{message};
}

std::string Engine::unitCalled(std::string_view text) {
  const std::string key(text);
  if (const auto* const known = units_.find(key)) return *known;
  std::string found = findUnit(text);
  units_.keep(key, found);
  return found;
}

std::shared_ptr<const Prepared> Engine::conversion(std::string_view from, std::string_view to) {
  const std::string key = std::to_string(from.size()) + ' ' + std::string(from) + std::string(to);
  if (const auto* const known = conversions_.find(key)) return *known;
  auto made = std::make_shared<Prepared>();
  made->from = unitCalled(from);
  const std::string target = unitCalled(to);
  made->conversion = make<trelvon_conversion>(trelvon_conversion_create, get(), textOf(made->from),
                                              textOf(target));
  conversions_.keep(key, made);
  return made;
}

std::string Engine::findUnit(std::string_view text) {
  if (holds(engine_.get(), TRELVON_UNIT, text)) return std::string(text);
  const auto best = make<trelvon_list>(trelvon_names_find_best, names(), textOf(text));
  const std::size_t count = trelvon_list_count(best.get());
  if (count == 0) refuseUnit(text);
  if (count == 1) return std::string(viewOf(nameAt(best, 0).unit));
  std::vector<std::string> candidates;
  for (std::size_t index = 0; index < count; ++index)
    candidates.push_back(write(trelvon_names_unambiguous, names(), nameAt(best, index).unit));
  refuseAmbiguous(text, "unit", candidates);
}

std::string Engine::symbolCalled(std::string_view text) {
  if (holds(engine_.get(), TRELVON_SYMBOL, text)) return std::string(text);
  if (symbols_ == nullptr) symbols_ = std::make_unique<SymbolNames>(engine_.get());
  const std::vector<std::string> found = symbols_->find(text);
  if (found.size() == 1) return found.front();
  if (!found.empty()) refuseAmbiguous(text, "symbol", found);
  throw Fault{unknown(engine_.get(), TRELVON_SYMBOL, text)};
}

std::string Engine::load(std::string_view folder) {
  const trelvon_text path = textOf(folder);
  const auto report = make<trelvon_load_report>(trelvon_load_folders, engine_.get(), &path,
                                                std::size_t{1}, unsigned{TRELVON_NO_LINTS});
  names_.reset();
  symbols_.reset();
  units_.clear();
  conversions_.clear();
  if (trelvon_load_report_errors(report.get()) != 0)
    throw Fault{write(trelvon_load_report_text, report.get())};
  return write(trelvon_load_report_json, report.get());
}

}  // namespace Sql
