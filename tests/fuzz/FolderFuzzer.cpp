/// Folders of any files, made on disk: exactly the schema files below subfolders are read, each up
/// to its first NUL, and an engine survives what they hold. The loader that reports says what an
/// engine says, and loads what can be built.
#include "model/CodePoints.h"
#include "tests/fuzz/Fuzzer.h"
#include "tests/support/FolderTree.h"
#include "tests/support/HostEngine.h"
#include "tests/support/RandomDefinitions.h"

#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <set>

namespace {

/// Makes the files. Returns the texts that must be read, in an order that the file system decides.
std::multiset<std::string> fill(const FolderTree& tree, Random& random) {
  static const char* const folders[] = {"", "a/", "a/", "b.json/", "a/c/", ".d/"};
  static const char* const names[] = {"1.json", "2.json", "3.JSON",  ".json",
                                      "..json", "4.txt",  "5.json~", "e.x.json"};
  static const char* const pieces[] = {"{", "}", "\"typeid\"", "x", "\xFF", "\r\n", "[", ":"};
  Units::RandomDefinitions definitions(random);
  std::multiset<std::string> expected;
  for (std::size_t count = random.below(10); count > 0; --count) {
    const std::string folder = random.oneOf(folders);
    const std::filesystem::path path = tree.path(folder + random.oneOf(names));
    std::string text = random.oneIn(3) ? random.text(pieces, 12) : definitions.nextText();
    if (random.oneIn(8)) text.insert(random.below(text.size() + 1), 1, '\0');
    if (std::filesystem::exists(path)) continue;
    tree.write(path, text);
    if (!folder.empty() && path.extension() == ".json")
      expected.insert(text.substr(0, text.find('\0')));
  }
  return expected;
}

std::string textOf(const std::string& path) {
  std::ifstream file(path, std::ios::binary);
  const std::string bytes{std::istreambuf_iterator<char>(file), {}};
  return bytes.substr(0, bytes.find('\0'));
}

/// Valid UTF-8, and in lines for people nothing that moves a terminal.
void checkOutput(const Schemas::SchemaReport& report) {
  const std::string text = report.toText();
  for (const std::string& output : {text, report.toJson(), report.toSarif()})
    for (std::string_view rest = output; !rest.empty();) {
      const auto [number, bytes] = Units::firstCodePoint(rest);
      check(number < 0x110000 && (number >= ' ' || (number == '\n' && output == text)), output);
      rest.remove_prefix(bytes);
    }
}

/// What the engine says of a file, or nothing.
std::string errorOf(const Schemas::SchemaReport& report, const std::string& file) {
  std::string error;
  for (const Schemas::Finding& finding : report.getFindings()) {
    if (finding.getFile() != file || finding.getSeverity() != Schemas::Severity::Error) continue;
    check(error.empty(), "a second error of ", file);
    error = "ValidationException: " + finding.getSentence();
  }
  return error;
}

/// The definitions of all ids that are stored, or why there is none.
std::map<std::string, std::string> definitionsOf(const Units::UnitsEngine& engine) {
  std::map<std::string, std::string> all;
  const auto add = [&](const auto& records) {
    for (const auto& [id, record] : records)
      all[id] = validated([&, id = id] { return engine.getDefinition(id); });
  };
  add(engine.getDimensions()), add(engine.getFactors()), add(engine.getUnits());
  add(engine.getSymbols()), add(engine.getQuantities());
  return all;
}

void checkReport(const std::string& folder, const Units::UnitsEngine& silent, bool isLoaded) {
  using Schemas::FileFate;
  const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  const auto report = Schemas::loadFolders({folder}, *engine, {true, true, true, {}});
  checkOutput(report);
  const std::unique_ptr<Units::UnitsEngine> asked(Units::CreateUnitsEngine());
  const std::unique_ptr<Units::UnitsEngine> kept(Units::CreateUnitsEngine());
  for (const Schemas::FileReport& file : report.getFiles()) {
    const FileFate fate = file.getFate();
    if (fate != FileFate::Loaded && fate != FileFate::LeftOut && fate != FileFate::Refused)
      continue;
    const std::string text = textOf(file.getPath());
    const std::string said = validated([&] { asked->addDefinition(text); });
    checkEqual(said, fate == FileFate::Refused ? errorOf(report, file.getPath()) : "", text);
    if (fate == FileFate::Loaded) kept->addDefinition(text);
  }
  const bool builds = validated([&] { asked->buildSchemas(); }).empty();
  check(builds == (report.getFileCount(FileFate::LeftOut) == 0), report.toText());
  kept->buildSchemas();
  check(definitionsOf(*kept) == definitionsOf(*engine), report.toText());
  if (isLoaded && report.getErrorCount() == 0)
    check(definitionsOf(silent) == definitionsOf(*engine), report.toText());

  const std::unique_ptr<Units::UnitsEngine> whole(Units::CreateUnitsEngine());
  const auto all = Schemas::loadFolders({folder}, *whole, {});
  check(all.getErrorCount() == 0 ? definitionsOf(*whole) == definitionsOf(*engine)
                                 : definitionsOf(*whole).empty(),
        all.toText());
}

}  // namespace

void fuzz(Random& random) {
  const FolderTree tree;
  const std::multiset<std::string> expected = fill(tree, random);
  Units::RecordingEngine recording;
  Schemas::SchemaUtility::addDefinitionsFromFolder(tree.path(), recording);
  const std::multiset<std::string> texts(recording.texts.begin(), recording.texts.end());
  check(texts == expected && recording.builds == 1, texts.size(), " texts");
  const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  bool isLoaded = false;
  validated([&] {
    Schemas::SchemaUtility::addDefinitionsFromFolder(tree.path(), *engine);
    isLoaded = true;
  });
  checkReport(tree.path(), *engine, isLoaded);
  for (const auto& [typeId, unit] : engine->getUnits())
    check(engine->canConvert(typeId, typeId), typeId);
}
