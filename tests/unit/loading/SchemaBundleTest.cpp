#include "tests/support/FolderTree.h"
#include "tests/support/Messages.h"

#include <TrelvonUnits/TrelvonUnits.h>

#include <gtest/gtest.h>
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
  const FolderTree folder;
  for (const std::size_t padding : {std::size_t{0}, std::size_t{200000}}) {
    folder.write("bundle", header + std::string(padding, ' ') + dimension("a") + "\0"s +
                               dimension("b") + "\0"s);
    const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
    SchemaBundle::addDefinitionsFromFile(folder.path("bundle").string(), *engine);
    EXPECT_EQ(engine->getDimensions().size(), 2u) << padding;
  }
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
