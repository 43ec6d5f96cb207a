#include "tests/catalogue/Describe.h"
#include "tests/catalogue/Packs.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <optional>
#include <random>
#include <set>

namespace Units {
namespace {

namespace fs = std::filesystem;

std::vector<fs::path> filesOf(const std::string& pack) {
  std::vector<fs::path> files;
  for (const auto& entry : fs::recursive_directory_iterator(fs::path(kSchemas) / pack))
    if (entry.path().extension() == ".json") files.push_back(entry.path());
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
  for (const fs::path& file : files) {
    try {
      asked.merge(engine.addDefinition(textOf(file)));
    } catch (const std::exception& refusal) {
      ADD_FAILURE() << file << ": " << refusal.what();
    }
  }
  engine.buildSchemas();
  for (const std::string& typeId : asked) EXPECT_TRUE(engine.isRegistered(typeId)) << typeId;
}

/// The factor or offset of a definition, correctly rounded.
std::optional<double> numberOf(const std::string& definition) {
  for (const std::string before : {"\"factor\",\"value\":", "\"offset\",\"value\":"}) {
    const std::size_t at = definition.find(before);
    if (at != std::string::npos)
      return std::strtod(definition.c_str() + at + before.size(), nullptr);
  }
  return std::nullopt;
}

class Catalogue : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    engine_.reset(CreateUnitsEngine());
    loadPacks(*engine_);
  }
  static void TearDownTestSuite() { engine_.reset(); }

  inline static std::unique_ptr<UnitsEngine> engine_;
};

TEST_F(Catalogue, IsTheSameInAnyOrderOfItsFilesAndNoneIsDropped) {
  const auto served = describeAll(*engine_);
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
      EXPECT_EQ(describeAll(*engine).size(), count) << pack;
    }
    EXPECT_EQ(describeAll(*engine), served);
  }
}

TEST_F(Catalogue, GivesEachGroupOfSymbolsToHostsThatWantNoOther) {
  const std::unique_ptr<UnitsEngine> engine(CreateUnitsEngine());
  for (const char* folder : {"core", "symbols/composite", "symbols/length", "aliases/length"})
    Schemas::SchemaUtility::addDefinitionsFromFolder(kSchemas + "/" + folder, *engine);
  EXPECT_EQ(engine->getSymbolsOfUnit("trelvon.unit:foot-1.0.0").size(), 7u);
  EXPECT_TRUE(engine->getSymbolsOfUnit("trelvon.unit:pound-1.0.0").empty());
}

TEST_F(Catalogue, HoldsItsUnitsAsTheirSymbolsAndQuantitiesDo) {
  const auto copies = copiesOf(*engine_);
  EXPECT_GT(copies.size(), engine_->getUnits().size());
  for (const Unit& copy : copies)
    EXPECT_EQ(describe(copy), describe(engine_->getUnit(copy.getTypeId())));
}

TEST_F(Catalogue, IsWrittenOutAndLoadedAfresh) {
  const auto served = describeAll(*engine_);
  const std::unique_ptr<UnitsEngine> again(CreateUnitsEngine());
  for (const auto& [typeId, description] : served)
    again->addDefinition(engine_->getDefinition(typeId));
  again->buildSchemas();
  const auto reread = describeAll(*again);
  ASSERT_EQ(reread.size(), served.size());

  // Spelled in their files so that the parser reads them right, which the shortest form is not.
  const std::set<std::string> unsafe = {"trelvon.unit:electronvolt-1.0.0",
                                        "trelvon.unit:barn-1.0.0", "trelvon.factor:yocto-1.0.0",
                                        "trelvon.factor:quecto-1.0.0"};
  for (const auto& [typeId, description] : served) {
    EXPECT_EQ(reread.at(typeId) == description, unsafe.count(typeId) == 0) << description;
    // The drift of these four is the parser's: what was written is the number to the bit.
    if (const auto number = numberOf(engine_->getDefinition(typeId))) {
      EXPECT_NE(description.find(bitsOf(*number)), std::string::npos) << description;
    }
  }
}

}  // namespace
}  // namespace Units
