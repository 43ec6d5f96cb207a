/// Folders of any content, made on disk: exactly the schema files below subfolders are read, each
/// up to its first NUL, and an engine survives what they hold. The loader that reports says what an
/// engine says, and loads what can be built.
#include "model/CodePoints.h"
#include "tests/fuzz/Fuzzer.h"
#include "tests/support/FolderTree.h"
#include "tests/support/HostEngine.h"
#include "tests/support/RandomDefinitions.h"

#include <sys/stat.h>

#include <fstream>
#include <iterator>
#include <map>
#include <memory>
#include <set>

namespace {

namespace fs = std::filesystem;

class RandomTree {
 public:
  explicit RandomTree(Random& random) : random_(random), definitions_(random) {
    const std::string outside = content();
    elsewhere_.write("outside.json", outside);
    elsewhere_.write("sub/never.json", "behind a link to a folder");
    for (std::size_t count = random_.below(10); count > 0; --count) addEntry(outside);
  }

  /// The texts that must be read; in which order is the file system's affair.
  std::multiset<std::string> expected;
  bool hasLoop = false;

  std::string root() const { return tree_.path(); }

 private:
  std::string content() {
    static const char* const pieces[] = {"{", "}", "\"typeid\"", "x", "\xFF", "\r\n", "[", ":"};
    std::string text = random_.oneIn(3) ? random_.text(pieces, 12) : definitions_.nextText();
    if (random_.oneIn(3) && !text.empty())
      text.replace(random_.below(text.size()), random_.below(3), random_.text(pieces, 1));
    if (random_.oneIn(4)) text.insert(random_.below(text.size() + 1), 1, '\0');
    return text;
  }

  void addEntry(const std::string& outside) {
    static const char* const folders[] = {"", "a/", "a/", "b.json/", "a/c/", ".d/"};
    static const char* const names[] = {"1.json", "2.json", "3.JSON",  ".json",
                                        "..json", "4.txt",  "5.json~", "e.x.json"};
    const std::string folder = random_.oneOf(folders);
    const std::string name = random_.oneOf(names);
    const fs::path path = tree_.path(folder + name);
    if (fs::exists(fs::symlink_status(path))) return;
    fs::create_directories(path.parent_path());
    const bool isRead = !folder.empty() && path.extension() == ".json";
    switch (random_.below(8)) {
      case 1:
        fs::create_symlink(elsewhere_.path("outside.json"), path);
        return expect(isRead, outside);
      case 2:
        return fs::create_symlink(elsewhere_.path("nothing"), path);
      case 3:
        return fs::create_directory_symlink(elsewhere_.path(), path);
      case 4:
        check(::mkfifo(path.c_str(), 0644) == 0, "no pipe: ", path);
        return;
      case 5:
        hasLoop = true;
        return fs::create_symlink(path, path);
      default:
        const std::string text = content();
        tree_.write(folder + name, text);
        return expect(isRead, text);
    }
  }

  void expect(bool isRead, const std::string& text) {
    if (isRead) expected.insert(text.substr(0, text.find('\0')));
  }

  Random& random_;
  Units::RandomDefinitions definitions_;
  const FolderTree tree_;
  const FolderTree elsewhere_;
};

/// Whether the load came to its end. A loop of links must break it off.
bool load(const RandomTree& tree, Units::UnitsEngine& engine) {
  try {
    Schemas::SchemaUtility::addDefinitionsFromFolder(tree.root(), engine);
  } catch (const fs::filesystem_error&) {
    check(tree.hasLoop, "broken off");
    return false;
  }
  check(!tree.hasLoop, "not broken off");
  return true;
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

void checkReport(const RandomTree& tree, const Units::UnitsEngine& silent, bool isLoaded) {
  using Schemas::FileFate;
  const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  const auto report = Schemas::loadFolders({tree.root()}, *engine, {true, true, true, {}});
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
  const auto all = Schemas::loadFolders({tree.root()}, *whole, {});
  check(all.getErrorCount() == 0 ? definitionsOf(*whole) == definitionsOf(*engine)
                                 : definitionsOf(*whole).empty(),
        all.toText());
}

}  // namespace

void fuzz(Random& random) {
  const RandomTree tree(random);
  Units::RecordingEngine recording;
  if (load(tree, recording)) {
    const std::multiset<std::string> texts(recording.texts.begin(), recording.texts.end());
    check(texts == tree.expected && recording.builds == 1, texts.size(), " texts");
  }
  const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  bool isLoaded = false;
  validated([&] { isLoaded = load(tree, *engine); });
  checkReport(tree, *engine, isLoaded);
  for (const auto& [typeId, unit] : engine->getUnits())
    check(engine->canConvert(typeId, typeId), typeId);
}
