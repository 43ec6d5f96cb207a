#include <TrelvonUnits/TrelvonUnits.h>

#include <gtest/gtest.h>

#include <memory>

namespace Units {
namespace {

std::string listed(const std::vector<UnitName>& found) {
  std::string list;
  for (const UnitName& name : found)
    list += name.getUnit().getTypeId() + '=' + name.getText() +
            "TLNS"[static_cast<int>(name.getKind())] + (name.isExact() ? " " : "~ ");
  return list;
}

TEST(UnitNames, AreWhatAHostChooses) {
  const std::unique_ptr<UnitsEngine> engine(CreateUnitsEngine());
  const auto add = [&](const std::string& typeId, const std::string& name,
                       const std::vector<std::string>& texts = {}) {
    const Unit unit(typeId, name, System::Metric, PrimitiveUnitComponent());
    engine->addUnit(unit);
    for (const std::string& text : texts)
      engine->addSymbol(
          {'s' + typeId + text, unit, PrefixOrSuffix(text, Placement::Suffix, false)});
  };
  EXPECT_EQ(listed(UnitNames(*engine).find("foot")), "");
  add("a:foot-1", "Foot", {"ft", "", "FT", "f-t"});
  add("b:foot-2.0", "FOOT");
  add("foot", "foot pound", {"ft", "foot"});
  add("c:board-foot", "ft");
  add("d:-1", "__", {"-", "\xB0\xFF"});
  add("A:", "foot-", {"foo"});
  const UnitNames names(*engine);

  const std::pair<std::string, const char*> rows[] = {
      {"foot", "foot=footT a:foot-1=footL b:foot-2.0=footL A:=foot-N~ "},
      {"FOOT", "b:foot-2.0=FOOTN a:foot-1=footL~ foot=footL~ A:=foot-N~ "},
      {"ft", "c:board-foot=ftN a:foot-1=ftS foot=ftS "},
      {"Ft", "c:board-foot=ftN~ "},
      {std::string(999, ' ') + "board_Foot", "c:board-foot=board-footL~ "},
      {"A:FOOT-1", ""},
      {"-", "d:-1=-S "},
      {"_", ""},
      {"", ""},
      {"\xB0\xFF", "d:-1=\xB0\xFFS "}};
  for (const auto& [text, found] : rows) EXPECT_EQ(listed(names.find(text)), found) << text;
  const std::pair<const char*, const char*> bestRows[] = {
      {"foot", "foot=footT "},
      {"FOOT", "b:foot-2.0=FOOTN "},
      {"-", "d:-1=-S "},
      {"F O O T", "a:foot-1=footL~ b:foot-2.0=footL~ foot=footL~ A:=foot-N~ "},
      {"ft ", "c:board-foot=ftN~ "}};
  for (const auto& [text, best] : bestRows) EXPECT_EQ(listed(names.findBest(text)), best) << text;
  const std::pair<const char*, const char*> namesOfRows[] = {
      {"a:foot-1",
       "Foot a:foot-1=a:foot-1T a:foot-1=footL a:foot-1=FootN a:foot-1=FTS a:foot-1=f-tS "
       "a:foot-1=ftS "},
      {"foot", "foot foot=footT foot=footL foot=foot poundN foot=footS foot=ftS "},
      {"d:-1", "__ d:-1=d:-1T d:-1=__N d:-1=-S d:-1=\xB0\xFFS "}};
  for (const auto& [typeId, all] : namesOfRows) {
    const Unit unit = engine->getUnit(typeId);
    EXPECT_EQ(names.unambiguousName(unit) + ' ' + listed(names.namesOf(unit)), all) << typeId;
  }
  const Unit foreign("Foot", "", System::Metric, PrimitiveUnitComponent());
  EXPECT_EQ(names.unambiguousName(foreign) + listed(names.namesOf(foreign)), "Foot");
  EXPECT_EQ(listed(names.suggest("foop", 9)),
            "A:=foot-N~ a:foot-1=footL~ b:foot-2.0=footL~ foot=footT~ ");
  EXPECT_EQ(listed(names.suggest(std::string(999, 'f'), 9)), "");
  EXPECT_EQ(listed(names.completions("foo", 9)),
            "A:=fooS a:foot-1=footL b:foot-2.0=footL foot=footL A:=foot-N foot=foot poundN "
            "b:foot-2.0=FOOTN~ a:foot-1=FootN~ ");
  EXPECT_EQ(names.completions("", 99).size(), 17u);
}

}  // namespace
}  // namespace Units
