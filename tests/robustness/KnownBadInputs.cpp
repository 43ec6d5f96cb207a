/// Inputs that are known to break libraries of this kind, each with the answer that it must get:
/// exponents at the ends of 32 bits, texts of any bytes, files that vanish.
/// Broken JSON and extreme numbers are in the unit tests and the fuzz targets, as are folders.
#include "tests/support/Check.h"
#include "tests/support/FolderTree.h"
#include "tests/support/HostEngine.h"
#include "tests/support/Sample.h"

#include <limits>

using namespace std::string_literals;

namespace {

/// Exponents stay at the ends of 32 bits, so that no sum or product comes out as another dimension.
void tryExponents() {
  const int most = std::numeric_limits<int>::max();
  const int least = std::numeric_limits<int>::min();
  const Engine engine = sampleEngine();
  const std::pair<const char*, Powers> units[] = {{"most", {{"inch", most}}},
                                                  {"least", {{"inch", least}}},
                                                  {"product", {{"most", 65536}}},
                                                  {"negative", {{"most", least}}},
                                                  {"sum", {{"most", 1}, {"inch", 1}}}};
  for (const auto& [typeId, parents] : units) engine->addUnit(derivedUnit(typeId, parents));
  addSuffix(*engine, "s", "most", "m");
  struct Row {
    const char* from;
    const char* to;
    bool converts;
  };
  for (const Row& row :
       {Row{"product", "most", true}, Row{"sum", "most", true}, Row{"negative", "least", true},
        Row{"least", "most", false}, Row{"product", "foot", false}, Row{"sum", "foot", false}})
    check(engine->canConvert(row.from, row.to) == row.converts, "exponents of ", row.from, " and ",
          row.to);
  for (const char* formula : {"(1 m)^2", "(1 m)^1e20", "1 m * 1 m", "1 m / (1 m)^-1e9"})
    checkEqual(outcome([&] { return engine->evaluateExpressionInUnit("most", formula); }),
               written(1.0), formula);
  checkEqual(outcome([&] { return engine->evaluateExpressionInUnit("foot", "(1 m)^2"); }),
             "ParseException: Unable to parse expression.", "(1 m)^2 in feet");
}

void tryBytes() {
  for (const std::string& bytes :
       {"a\0b"s, "\0"s, "\xFF\xFE"s, "\xC3"s, "\xED\xA0\x80"s, "\xF5\x80\x80\x80"s, "\x80"s}) {
    const Engine engine = sampleEngine();
    const std::string symbol = "s" + bytes;
    engine->addUnit(derivedUnit(bytes, {{"inch", 1}}));
    addSuffix(*engine, symbol, bytes, bytes);
    engine->addQuantity(Units::Quantity("q" + bytes, bytes, {engine->getUnit(bytes)}));
    check(engine->isRegistered(bytes) && engine->getQuantity("q" + bytes).getName() == bytes,
          bytes);
    checkEqual(engine->convert(2, bytes, "inch"), 2, "a conversion by an id of any bytes");
    checkEqual(engine->formatFixedPoint(2, 0, &symbol, false), "2 " + bytes, "a symbol's text");
    for (const std::string& formula : {"2 " + bytes, "(2) " + bytes, bytes, bytes + "(2)"})
      outcome([&] { return engine->evaluateExpressionInUnit(bytes, formula); });
    checkEqual(outcome([&] { return engine->evaluateExpressionInUnit("inch", "2 " + bytes); }),
               written(2.0), bytes);
    describe(*engine);
  }
}

/// The first that is read removes all the others, which the walk may have seen already.
void tryFilesThatVanish() {
  const FolderTree folder;
  const auto name = [](int number) { return "sub/" + std::to_string(number) + ".json"; };
  for (int number = 1; number < 10; ++number)
    folder.write(name(number), dimension(std::to_string(number)));
  Units::HostEngine engine;
  engine.onCall = [&](int) {
    for (int number = 1; number < 10; ++number) std::filesystem::remove(folder.path(name(number)));
  };
  Schemas::SchemaUtility::addDefinitionsFromFolder(folder.path(), engine);
  checkEqual(engine.inner->getDimensions().size(), 1u, "files that vanish");
}

}  // namespace

int main() {
  tryExponents();
  tryBytes();
  tryFilesThatVanish();
  return verdict();
}
