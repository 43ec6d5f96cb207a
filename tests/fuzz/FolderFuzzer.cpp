/// Folders of any files, made on disk: exactly the schema files below subfolders are read, each up
/// to its first NUL, and an engine survives what they hold.
#include "tests/fuzz/Fuzzer.h"
#include "tests/support/FolderTree.h"
#include "tests/support/HostEngine.h"
#include "tests/support/RandomDefinitions.h"

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

}  // namespace

void fuzz(Random& random) {
  const FolderTree tree;
  const std::multiset<std::string> expected = fill(tree, random);
  Units::RecordingEngine recording;
  Schemas::SchemaUtility::addDefinitionsFromFolder(tree.path(), recording);
  const std::multiset<std::string> texts(recording.texts.begin(), recording.texts.end());
  check(texts == expected && recording.builds == 1, texts.size(), " texts");
  const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  validated([&] { Schemas::SchemaUtility::addDefinitionsFromFolder(tree.path(), *engine); });
  for (const auto& [typeId, unit] : engine->getUnits())
    check(engine->canConvert(typeId, typeId), typeId);
}
