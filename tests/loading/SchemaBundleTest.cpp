#include "tests/support/Messages.h"

#include <TrelvonUnits/TrelvonUnits.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <memory>
#include <stdexcept>

namespace Schemas {
namespace {

using std::string_literals::operator""s;

const std::string header = "TrelvonUnits-schema-bundle-1\n";

std::string dimension(const std::string& typeId) {
  return R"({"typeid":")" + typeId + R"(","inherits":["x:dimension-1.0"]})";
}

TEST(SchemaBundle, GivesTextByTextToTheEngine) {
  const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  SchemaBundle::addDefinitionsFromBuffer(header + dimension("a") + "\0no schema\0\0"s +
                                             dimension("b") + "\0"s + dimension("a") + "\0"s,
                                         *engine);
  EXPECT_EQ(engine->getDimensions().size(), 2u);

  SchemaBundle::addDefinitionsFromBuffer(header, *engine);
  EXPECT_EQ(engine->getDimensions().size(), 2u);
}

TEST(SchemaBundle, IsReadFromAFileOfAnyLength) {
  const std::string file = testing::TempDir() + "bundle";
  for (const std::size_t padding : {std::size_t{0}, std::size_t{200000}}) {
    std::ofstream(file, std::ios::binary)
        << header << std::string(padding, ' ') << dimension("a") << '\0' << dimension("b") << '\0';
    const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
    SchemaBundle::addDefinitionsFromFile(file, *engine);
    EXPECT_EQ(engine->getDimensions().size(), 2u) << padding;
  }
  std::remove(file.c_str());
}

TEST(SchemaBundle, RefusesWhatIsNone) {
  const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  for (const std::string& bundle :
       {""s, "{}"s, header.substr(1), header + dimension("a"), header + dimension("a") + "\0x"s})
    EXPECT_EQ(messageOf<std::logic_error>(
                  [&] { SchemaBundle::addDefinitionsFromBuffer(bundle, *engine); }),
              "not a schema bundle")
        << bundle;
  EXPECT_FALSE(engine->isRegistered("a"));
  EXPECT_EQ(messageOf<std::logic_error>(
                [&] { SchemaBundle::addDefinitionsFromFile("no such file", *engine); }),
            "failed to open schema bundle");
  EXPECT_EQ(
      messageOf<std::logic_error>([&] { SchemaBundle::addDefinitionsFromFile("/", *engine); }),
      "failed to read schema bundle");
}

}  // namespace
}  // namespace Schemas
