#include "tests/catalog/Packs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>

namespace Units {
namespace {

namespace fs = std::filesystem;

std::vector<fs::path> filesOf(const std::string& pack) {
  std::vector<fs::path> files;
  const fs::path top = fs::path(kSchemas) / pack;
  for (const auto& entry : fs::recursive_directory_iterator(top))
    if (entry.path().extension() == ".json" && entry.path().parent_path() != top)
      files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  return files;
}

std::string textOf(const fs::path& file) {
  std::ifstream stream(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(stream), {}};
}

/// Loads a pack file by file, and fails where a file is refused or what it asks for stays away.
void loadFiles(const std::vector<fs::path>& files, UnitsEngine& engine) {
  std::set<std::string> asked;
  for (const fs::path& file : files)
    EXPECT_NO_THROW(asked.merge(engine.addDefinition(textOf(file)))) << file;
  engine.buildSchemas();
  for (const std::string& typeId : asked) EXPECT_TRUE(engine.isRegistered(typeId)) << typeId;
}

TEST(Catalog, IsTheSameInAnyOrderOfItsFilesAndNoneIsDropped) {
  const auto stored = definitionsOf(catalog());
  std::mt19937 random(20260101);
  for (int order = 0; order < 3; ++order) {
    const std::unique_ptr<UnitsEngine> engine(CreateUnitsEngine());
    std::size_t count = 0;
    for (const std::string& pack : kPacks) {
      std::vector<fs::path> files = filesOf(pack);
      if (order == 1) std::reverse(files.begin(), files.end());
      if (order == 2) std::shuffle(files.begin(), files.end(), random);
      loadFiles(files, *engine);
      count += files.size();
    }
    EXPECT_EQ(count, stored.size());
    EXPECT_EQ(definitionsOf(*engine), stored);
  }
}

}  // namespace
}  // namespace Units
