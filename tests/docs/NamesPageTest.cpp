#include "tests/docs/Page.h"
#include "tests/support/Heap.h"
#include "tests/support/Random.h"

#include <TrelvonUnits/UnitNames.h>

#include <chrono>
#include <iostream>

namespace {

using Found = std::vector<Units::UnitName>;

std::string localIdOf(const std::string& typeId) {
  const std::size_t begin = typeId.find(':') + 1;
  return typeId.substr(begin, typeId.rfind('-') - begin);
}

std::string listed(const Found& found) {
  const char* const kinds[] = {"type id", "local id", "name", "symbol text", "code", "expression"};
  std::string list;
  for (const Units::UnitName& name : found)
    list += (list.empty() ? "" : "; ") + name.getText() + ", " +
            kinds[static_cast<int>(name.getKind())] + " of " +
            localIdOf(name.getUnit().getTypeId());
  return list.empty() ? "nothing" : list;
}

Units::UnitCodes makeCatalogCodes() {
  const auto codesOf = [](const std::string& pack) {
    return Units::UnitCodes::fromText(readFile("schemas/" + pack + "/codes.json"));
  };
  return codesOf("core").with(codesOf("legacy")).with(codesOf("gauge")).with(codesOf("cgs"));
}

/// All codes, each behind its system, with the type ids of their units.
std::vector<std::pair<std::string, std::string>> textsOf(const Units::UnitCodes& codes) {
  std::vector<std::pair<std::string, std::string>> texts;
  for (const std::string& unit : codes.getUnits())
    for (const std::string& system : codes.getSystems())
      for (const std::string& code : codes.getCodes(unit, system))
        texts.emplace_back(system + ':' + code, unit);
  return texts;
}

bool hasUnit(const Found& found, const Units::Unit& unit) {
  return std::any_of(found.begin(), found.end(),
                     [&](const Units::UnitName& name) { return name.getUnit() == unit; });
}

TEST(NamesPage, TextsFindWhatItSays) {
  const Units::UnitNames names(*makeCatalogEngine(), makeCatalogCodes());
  for (const auto& row : rowsOf("names.md", {"text", "finds"}))
    EXPECT_EQ(listed(names.find(row[0])), row[1]) << row[0];
  for (const auto& row : rowsOf("names.md", {"mistyped", "at most 3 suggestions"}))
    EXPECT_EQ(listed(names.suggest(row[0], 3)), row[1]) << row[0];
  for (const auto& row : rowsOf("names.md", {"beginning", "the first 3 completions"}))
    EXPECT_EQ(listed(names.completions(row[0], 3)), row[1]) << row[0];
}

TEST(NamesPage, TextsWithoutAUnitHaveTheReasonsThatItSays) {
  const Units::UnitNames names(*makeCatalogEngine(), makeCatalogCodes());
  for (const auto& row : rowsOf("names.md", {"text", "why not"}))
    EXPECT_EQ(names.whyNot(row[0]), row[1]) << row[0];
}

std::string mistyped(std::string name, Random& random) {
  const std::size_t place = random.below(name.size() - 1), error = random.below(4);
  const std::string letter(1, static_cast<char>('a' + random.below(26)));
  const std::string written[] = {letter, "", letter, {name[place + 1], name[place]}};
  return name.replace(place, (error + 1) / 2, written[error]);
}

TEST(NamesPage, EveryTextOfTheCatalogFindsItsUnitAndSoDoMistypedNames) {
  const auto engine = makeCatalogEngine();
  const Units::UnitNames names(*engine);
  const auto units = engine->getUnits();
  for (const auto& [typeId, unit] : units)
    for (const std::string& text : {typeId, localIdOf(typeId), unit.getName()})
      EXPECT_TRUE(hasUnit(names.find(text), unit)) << text;
  for (const auto& [typeId, symbol] : engine->getSymbols()) {
    const auto shown = symbol.getPrefixOrSuffix();
    if (!shown || shown->getText().empty()) continue;
    EXPECT_TRUE(hasUnit(names.find(shown->getText()), symbol.getUnit())) << typeId;
  }

  Random random(1);
  int count = 0, suggested = 0;
  while (count < 10000) {
    const Units::Unit unit = random.oneOf(units).second;
    if (unit.getName().size() < 5) continue;
    suggested += hasUnit(names.suggest(mistyped(unit.getName(), random), 3), unit);
    ++count;
  }
  std::cout << suggested << " of " << count << " mistyped names are suggested\n";
  EXPECT_GE(suggested, 9500);
}

TEST(NamesPage, EveryCodeFindsItsUnitInLittleTimeAndMemory) {
  const auto engine = makeCatalogEngine();
  Schemas::SchemaUtility::addDefinitionsFromFolder(TRELVON_TESTS_SOURCE_DIR "/schemas/cgs",
                                                   *engine);
  const Units::UnitCodes codes = makeCatalogCodes();
  const long before = heap::liveBytes();
  const Units::UnitNames names(*engine, codes);
  names.find("");  // sorts for loose searches
  const double megabytes = static_cast<double>(heap::liveBytes() - before) / 1e6;
  EXPECT_LT(megabytes, 10);

  const auto texts = textsOf(codes);
  for (const auto& [text, unit] : texts) {
    const Found found = names.find(text);
    EXPECT_TRUE(found.size() == 1 && found[0].getUnit().getTypeId() == unit) << text;
  }
  using Clock = std::chrono::steady_clock;
  double best = 1e9;  // microseconds for all texts
  for (int round = 0; round < 20; ++round) {
    const auto begin = Clock::now();
    for (const auto& [text, unit] : texts) names.findBest(text);
    best = std::min(best, std::chrono::duration<double, std::micro>(Clock::now() - begin).count());
  }
  std::cout << texts.size() << " codes, " << megabytes << " MB, "
            << static_cast<double>(texts.size()) / best << " million look-ups a second\n";
}

}  // namespace
