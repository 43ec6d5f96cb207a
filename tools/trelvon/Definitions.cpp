#include "tools/trelvon/Definitions.h"

#include "tools/trelvon/Failure.h"
#include "tools/trelvon/Files.h"
#include "tools/trelvon/ShownText.h"

#include <TrelvonUnits/Exceptions.h>
#include <TrelvonUnits/SchemaBundle.h>

#include <exception>
#include <filesystem>
#include <system_error>

namespace tool {

namespace fs = std::filesystem;

namespace {

constexpr const char* bundleName = "catalog.bundle";

/// The folder of the program's data: that of an installed tree, which may have been moved, or of a
/// build tree.
fs::path dataFolder() {
  std::error_code error;
  const fs::path program = fs::read_symlink("/proc/self/exe", error);
  const fs::path installed = program.parent_path() / TRELVON_TOOL_DATA;
  if (!error && fs::exists(installed / bundleName, error)) return installed.lexically_normal();
  const fs::path built = program.parent_path();
  return fs::exists(built / bundleName, error) ? built : installed.lexically_normal();
}

}  // namespace

Definitions::Definitions(const Arguments& arguments, std::function<void(const std::string&)> report)
    : hasCatalog_(!arguments.has("only")),
      isStrict_(arguments.has("strict")),
      folders_(arguments.texts("load")),
      report_(std::move(report)) {}

std::string Definitions::besideCatalog(const std::string& name) {
  return (dataFolder() / name).string();
}

void Definitions::loadCatalog() {
  const std::string path = besideCatalog(bundleName);
  try {
    Schemas::SchemaBundle::addDefinitionsFromFile(path, *engine_);
  } catch (const std::logic_error& error) {
    throw Failure(Status::Files, std::string(error.what()) + ": " + inQuotes(path) +
                                     "; --only --load FOLDER does without the catalog");
  }
}

/// Adds file by file, to report each that is refused.
void Definitions::loadFolder(const std::string& folder) {
  const auto fault = [this](const std::string& path, const std::exception& error) {
    const std::string sentence = shown(path) + ": " + shown(error.what());
    if (isStrict_) throw Failure(Status::Files, sentence);
    report_(sentence);
  };
  for (const std::string& path : schemaFiles(folder)) {
    try {
      engine_->addDefinition(readFile(path));
    } catch (const Units::ValidationException& error) {
      fault(path, error);
    } catch (const Failure& error) {
      fault(path, error);
    }
  }
  try {
    engine_->buildSchemas();
  } catch (const Units::ValidationException& error) {
    fault(folder, error);
  }
}

Units::UnitsEngine& Definitions::engine() {
  if (engine_ == nullptr) {
    engine_.reset(Units::CreateUnitsEngine());
    if (hasCatalog_) loadCatalog();
    for (const std::string& folder : folders_) loadFolder(folder);
  }
  return *engine_;
}

const Units::UnitNames& Definitions::names() {
  if (!names_) names_.emplace(engine());
  return *names_;
}

void Definitions::forEachText(
    const std::function<void(const std::string&, std::string_view)>& action) const {
  if (hasCatalog_) {
    const std::string path = besideCatalog(bundleName), bundle = readFile(path);
    forEachBundled(path, bundle, [&](std::string_view text) { action(path, text); });
  }
  for (const std::string& folder : folders_)
    for (const std::string& path : schemaFiles(folder)) action(path, readFile(path));
}

}  // namespace tool
