#include "tests/docs/Page.h"

#include <TrelvonUnits/UnitsEngine.h>

#include <memory>
#include <set>

namespace {

std::unique_ptr<Units::UnitsEngine> makeExampleEngine() {
  std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  for (const std::string& example : examplesOf("schema-format.md")) engine->addDefinition(example);
  engine->buildSchemas();
  return engine;
}

/// The answer of a step that gives nothing when it succeeds.
template <class Step>
std::string refusalOf(Step&& step) {
  return answerOf([&] {
    step();
    return std::string("accepted");
  });
}

TEST(SchemaPage, ExamplesShowEveryKind) {
  const std::unique_ptr<Units::UnitsEngine> engine = makeExampleEngine();
  std::set<std::string> bases;
  for (const auto& row : rowsOf("schema-format.md", {"kind", "base id", "recognized by"}))
    EXPECT_TRUE(bases.insert(row[1]).second) << row[1];

  for (const std::string& example : examplesOf("schema-format.md")) {
    const std::string base = example.substr(example.find("vellamor"));
    bases.erase(base.substr(0, base.find('"')));
    const std::string id = example.substr(example.find("example."));
    const std::string text = engine->getDefinition(id.substr(0, id.find('"')));
    EXPECT_NE(text.find(base.substr(0, base.find('"'))), std::string::npos) << text;
  }
  EXPECT_EQ(bases, std::set<std::string>());
}

TEST(SchemaPage, FaultyDefinitionsAreRefusedAsItSays) {
  for (const auto& row : rowsOf("schema-format.md", {"definition", "when", "message"})) {
    const std::unique_ptr<Units::UnitsEngine> engine = makeExampleEngine();
    std::string when = "read";
    std::string answer = refusalOf([&] { engine->addDefinition(row[0]); });
    if (answer == "accepted") {
      when = "built";
      answer = refusalOf([&] { engine->buildSchemas(); });
    }
    EXPECT_EQ(when, row[1]) << row[0];
    EXPECT_EQ(answer, row[2]) << row[0];
  }
  for (const auto& row : rowsOf("errors.md", {"text", "message"}))
    EXPECT_EQ(refusalOf([&] { makeExampleEngine()->addDefinition(row[0]); }), row[1]) << row[0];
}

TEST(SchemaPage, DefinitionsAreWrittenAsItSays) {
  for (const auto& row : rowsOf("schema-format.md", {"definition", "written"})) {
    const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
    engine->addDefinition(row[0]);
    engine->buildSchemas();
    EXPECT_EQ(engine->getDefinition("a"), row[1]) << row[0];
  }
}

TEST(SchemaPage, NumbersAreReadAsItSays) {
  for (const auto& row : rowsOf("schema-format.md", {"in the file", "read as"})) {
    const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
    engine->addDefinition(R"({"typeid":"a","inherits":[":factor-1."],"constants":[{"id":"factor",)"
                          R"("value":)" +
                          row[0] + "}]}");
    engine->buildSchemas();
    EXPECT_EQ(written(engine->getFactor("a").getFactorComponent().getFactor()), row[1]) << row[0];
  }
}

}  // namespace
