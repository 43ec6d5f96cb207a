#include "tools/trelvon/Definitions.h"

#include "tools/trelvon/BundleIndex.h"
#include "tools/trelvon/Codes.h"
#include "tools/trelvon/Failure.h"
#include "tools/trelvon/Files.h"
#include "tools/trelvon/ShownText.h"

#include <TrelvonUnits/SchemaBundle.h>
#include <TrelvonUnits/SchemaReport.h>

#include <algorithm>
#include <exception>
#include <filesystem>
#include <system_error>

namespace tool {

namespace fs = std::filesystem;

namespace {

constexpr const char* bundleName = "catalog.bundle";
constexpr const char* indexName = "catalog.index";
constexpr const char* codesName = "catalog.codes.json";

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

/// Whether schema files lie directly in a folder, where loaders do not read them.
bool hasFilesOnTop(const std::string& folder) {
  std::error_code error;
  fs::directory_iterator entry(folder, error);
  for (; !error && entry != fs::directory_iterator(); entry.increment(error))
    if (entry->path().extension() == ".json" && entry->path().filename() != "codes.json")
      return true;
  return false;
}

}  // namespace

Definitions::Definitions(const Arguments& arguments, std::function<void(const std::string&)> report)
    : hasCatalog_(!arguments.has("only")),
      isStrict_(arguments.has("strict")),
      folders_(arguments.texts("load")),
      report_(std::move(report)) {}

void Definitions::load(const std::string& folder) {
  const auto isSame = [&](const std::string& other) {
    std::error_code unknown;
    return fs::equivalent(folder, other, unknown);
  };
  if (std::none_of(folders_.begin(), folders_.end(), isSame)) folders_.push_back(folder);
}

void Definitions::unload() {
  names_.reset();
  namesWithCodes_.reset();
  codes_.reset();
  typeIds_.clear();
  engine_.reset();
}

std::string Definitions::besideCatalog(const std::string& name) {
  return (dataFolder() / name).string();
}

void Definitions::loadCatalog() {
  const std::string path = besideCatalog(bundleName);
  try {
    Schemas::SchemaBundle::addDefinitionsFromFile(path, *engine_);
  } catch (const std::logic_error& error) {
    throw Failure(Status::Files, std::string(error.what()) + ": " + inQuotes(path) +
                                     "; to work without the catalog, use --only --load FOLDER");
  }
}

/// Loads what can be loaded of a folder, and reports the rest.
void Definitions::loadFolder(const std::string& folder) {
  std::error_code unknown;
  if (!fs::is_directory(folder, unknown))
    throw Failure(Status::Files, inQuotes(folder) + " is not a folder");
  Schemas::ReportOptions options;
  options.lint = false;
  options.leaveOutWhatCannotBuild = !isStrict_;
  const Schemas::SchemaReport report = Schemas::loadFolders({folder}, *engine_, options);
  const auto tell = [this](const std::string& sentence) {
    if (isStrict_) throw Failure(Status::Files, sentence);
    report_(sentence);
  };
  const auto files = report.getFiles();
  const bool readsAny = std::any_of(files.begin(), files.end(), [](const auto& file) {
    return file.getFate() != Schemas::FileFate::PassedOver;
  });
  if (!readsAny && hasFilesOnTop(folder))
    tell("nothing of " + inQuotes(folder) +
         " is loaded: only files in its subfolders are read, such as FOLDER/units");
  for (const Schemas::Finding& finding : report.getFindings()) {
    const Schemas::TextPosition begin = finding.getBegin();
    const std::string sentence = shown(finding.getFile()) + ':' + std::to_string(begin.line) + ':' +
                                 std::to_string(begin.columnPoint) + ": " +
                                 shown(finding.getSentence());
    tell(sentence);
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

void Definitions::loadOnly(const std::vector<std::string>& unitNames) {
  if (engine_ != nullptr || !hasCatalog_ || !folders_.empty()) return;
  SomeUnits some = loadByIndex(besideCatalog(indexName), besideCatalog(bundleName), unitNames);
  engine_ = std::move(some.engine);
  typeIds_ = std::move(some.typeIds);
}

std::string Definitions::typeIdOf(const std::string& unitName) const {
  const auto found = typeIds_.find(unitName);
  return found == typeIds_.end() ? std::string() : found->second;
}

const Units::UnitNames& Definitions::names() {
  if (!names_) names_.emplace(engine());
  return *names_;
}

const Units::UnitNames& Definitions::namesWithCodes() {
  if (!namesWithCodes_) namesWithCodes_.emplace(engine(), codes());
  return *namesWithCodes_;
}

const Units::UnitCodes& Definitions::codes() {
  if (codes_) return *codes_;
  const Units::UnitCodes ofFolders = codesOfFolders(folders_);
  return codes_.emplace(hasCatalog_ ? readCodes(besideCatalog(codesName)).with(ofFolders)
                                    : ofFolders);
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
