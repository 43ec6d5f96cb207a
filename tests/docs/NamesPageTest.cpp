#include "tests/docs/Page.h"
#include "tests/support/Random.h"

#include <TrelvonUnits/UnitNames.h>

#include <iostream>

namespace {

using Units::UnitName;
using Found = std::vector<UnitName>;

const Units::UnitNames& names() {
  static const Units::UnitNames made(*makeCatalogueEngine());
  return made;
}

std::string localIdOf(const UnitName& name) {
  const std::string id = name.getUnit().getTypeId();
  return id.substr(id.find(':') + 1, id.rfind('-') - id.find(':') - 1);
}

std::string asFound(const UnitName& name) {
  const char* const kinds[] = {"type id", "local id", "name", "symbol text"};
  return localIdOf(name) + " by " + kinds[static_cast<int>(name.getKind())] +
         (name.isExact() ? "" : ", loosely");
}

std::string asText(const UnitName& name) {
  const bool isLocalId = name.getText() == localIdOf(name);
  return isLocalId ? name.getText() : name.getText() + " of " + localIdOf(name);
}

std::string listed(const Found& found, std::string (*one)(const UnitName&)) {
  std::string list;
  for (const UnitName& name : found) list += (list.empty() ? "" : "; ") + one(name);
  return list.empty() ? "nothing" : list;
}

TEST(NamesPage, TextsFindWhatItSays) {
  for (const auto& row : rowsOf("names.md", {"text", "finds"}))
    EXPECT_EQ(listed(names().find(row[0]), asFound), row[1]) << row[0];
  for (const auto& row : rowsOf("names.md", {"mistyped", "at most 3 suggestions"}))
    EXPECT_EQ(listed(names().suggest(row[0], 3), asText), row[1]) << row[0];
  for (const auto& row : rowsOf("names.md", {"beginning", "the first 3 completions"}))
    EXPECT_EQ(listed(names().completions(row[0], 3), asText), row[1]) << row[0];
}

bool hasUnit(const Found& found, const Units::Unit& unit) {
  return std::any_of(found.begin(), found.end(),
                     [&](const UnitName& name) { return name.getUnit() == unit; });
}

TEST(NamesPage, EveryTextOfTheCatalogueFindsItsUnit) {
  const auto engine = makeCatalogueEngine();
  for (const auto& [typeId, unit] : engine->getUnits()) {
    const std::string local = typeId.substr(typeId.find(':') + 1);
    for (const std::string& text : {typeId, local.substr(0, local.rfind('-')), unit.getName()})
      EXPECT_TRUE(hasUnit(names().find(text), unit)) << text;
  }
  for (const auto& [typeId, symbol] : engine->getSymbols()) {
    const auto shown = symbol.getPrefixOrSuffix();
    if (!shown || shown->getText().empty()) continue;
    EXPECT_TRUE(hasUnit(names().find(shown->getText()), symbol.getUnit())) << typeId;
  }
}

std::string mistyped(std::string name, Random& random) {
  const std::size_t place = random.below(name.size() - 1);
  const char letter = random.oneOf(std::string("abcdefghijklmnopqrstuvwxyz"));
  switch (random.below(4)) {
    case 0:
      return name.insert(place, 1, letter);
    case 1:
      return name.erase(place, 1);
    case 2:
      return name.replace(place, 1, 1, letter);
    default:
      std::swap(name[place], name[place + 1]);
      return name;
  }
}

TEST(NamesPage, UnitsAreSuggestedForMistypedNames) {
  Random random(1);
  const auto units = makeCatalogueEngine()->getUnits();
  int count = 0, suggested = 0;
  while (count < 10000) {
    const Units::Unit unit = random.oneOf(units).second;
    if (unit.getName().size() < 5) continue;
    ++count;
    suggested += hasUnit(names().suggest(mistyped(unit.getName(), random), 3), unit);
  }
  std::cout << suggested << " of " << count << " mistyped names are suggested\n";
  EXPECT_GE(suggested, 9500);
}

}  // namespace
