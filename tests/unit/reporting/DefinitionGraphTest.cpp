#include "tests/support/FolderTree.h"
#include "tests/support/Messages.h"
#include "tests/support/RandomDefinitions.h"

#include <TrelvonUnits/SchemaReport.h>

#include <gtest/gtest.h>

#include <memory>

namespace {

using Texts = std::vector<std::string>;

/// Whether the texts of a set, by the bits of their numbers, are all taken and built.
bool builds(const Texts& texts, unsigned set) {
  const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  try {
    for (std::size_t number = 0; number < texts.size(); ++number)
      if (set >> number & 1) engine->addDefinition(texts[number]);
    engine->buildSchemas();
  } catch (const Units::ValidationException&) {
    return false;
  }
  return true;
}

/// The texts that an engine takes, one after the other.
unsigned takenOf(const Texts& texts) {
  const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  unsigned taken = 0;
  for (std::size_t number = 0; number < texts.size(); ++number) try {
      engine->addDefinition(texts[number]);
      taken |= 1u << number;
    } catch (const Units::ValidationException&) {
    }
  return taken;
}

TEST(LeavingOut, KeepsTheLargestSetThatBuilds) {
  Random random(1);
  int leftOut = 0;
  for (int round = 0; round < 200; ++round) {
    Units::RandomDefinitions definitions(random);
    const FolderTree tree;
    Texts texts;
    for (std::size_t number = 0; number < 8; ++number) {
      texts.push_back(definitions.nextText());
      tree.write("sub/" + std::to_string(number) + ".json", texts.back());
    }
    const unsigned taken = takenOf(texts);
    unsigned largest = 0;
    for (unsigned set = taken; set != 0; set = (set - 1) & taken)
      if ((set | largest) != largest && builds(texts, set)) largest |= set;
    ASSERT_TRUE(builds(texts, largest)) << "two sets that build do not build together";

    Schemas::ReportOptions options;
    options.leaveOutWhatCannotBuild = true;
    const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
    const auto report = Schemas::loadFolders({tree.path()}, *engine, options);
    const auto files = report.getFiles();
    unsigned loaded = 0;
    for (std::size_t number = 0; number < files.size(); ++number)
      if (files[number].getFate() == Schemas::FileFate::Loaded) loaded |= 1u << number;
    EXPECT_EQ(loaded, largest) << report.toText();
    EXPECT_EQ(largest == taken, builds(texts, taken));
    leftOut += largest != taken;
  }
  EXPECT_GT(leftOut, 50);
}

}  // namespace
