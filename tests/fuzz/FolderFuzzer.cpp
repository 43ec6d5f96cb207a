/// Folders of any content, made on disk: exactly the schema files below subfolders are read, each
/// up to its first NUL, and an engine survives what they hold.
#include "tests/fuzz/Fuzzer.h"
#include "tests/support/FolderTree.h"
#include "tests/support/HostEngine.h"
#include "tests/support/RandomDefinitions.h"

#include <sys/stat.h>

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
    if (random_.oneIn(3)) return definitions_.nextText();
    std::string text = random_.text(pieces, 12);
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

}  // namespace

void fuzz(Random& random) {
  const RandomTree tree(random);
  Units::RecordingEngine recording;
  if (load(tree, recording)) {
    const std::multiset<std::string> texts(recording.texts.begin(), recording.texts.end());
    check(texts == tree.expected && recording.builds == 1, texts.size(), " texts");
  }
  const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  validated([&] { load(tree, *engine); });
  for (const auto& [typeId, unit] : engine->getUnits())
    check(engine->canConvert(typeId, typeId), typeId);
}
