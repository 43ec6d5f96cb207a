#include <TrelvonUnits/TrelvonUnits.h>

#include <gtest/gtest.h>

#include <memory>

namespace Units {
namespace {

/// Units with type ids, names and symbol texts that a host may choose.
UnitNames makeNames() {
  const std::unique_ptr<UnitsEngine> engine(CreateUnitsEngine());
  const auto add = [&](const std::string& typeId, const std::string& name,
                       const std::vector<std::string>& texts = {}) {
    const Unit unit(typeId, name, System::Metric, PrimitiveUnitComponent());
    engine->addUnit(unit);
    for (const std::string& text : texts)
      engine->addSymbol(Symbol("symbol of " + typeId + ": " + text, unit,
                               PrefixOrSuffix(text, Placement::Suffix, false)));
  };
  add("a:foot-1", "Foot", {"ft", "", "FT", "f-t"});
  add("b:foot-2.0", "FOOT");
  add("foot", "foot pound", {"ft", "foot"});
  add("c:board-foot", "ft");
  add("d:-1", "__", {"-", "\xB0\xFF"});
  add("A:", "foot-", {"foo"});
  return UnitNames(*engine);
}

std::string listed(const std::vector<UnitName>& found) {
  std::string list;
  for (const UnitName& name : found) {
    list += list.empty() ? "" : " ";
    list += name.getUnit().getTypeId() + '=' + name.getText() + "TLNS"[int(name.getKind())];
    list += name.isExact() ? "" : "~";
  }
  return list;
}

TEST(UnitNames, FindEachUnitOnceForTheFirstReason) {
  const UnitNames names = makeNames();
  const std::pair<const char*, const char*> rows[] = {
      {"foot", "foot=footT a:foot-1=footL b:foot-2.0=footL A:=foot-N~"},
      {"FOOT", "b:foot-2.0=FOOTN a:foot-1=footL~ foot=footL~ A:=foot-N~"},
      {"foot-", "A:=foot-N a:foot-1=footL~ b:foot-2.0=footL~ foot=footL~"},
      {"ft", "c:board-foot=ftN a:foot-1=ftS foot=ftS"},
      {"Ft", "c:board-foot=ftN~"},
      {"boardFoot", "c:board-foot=board-footL~"},
      {"Foot_Pound", "foot=foot poundN~"},
      {"A:FOOT-1", ""},
      {"-", "d:-1=-S"},
      {"__", "d:-1=__N"},
      {"_", ""},
      {"", ""},
      {"\xB0\xFF", "d:-1=\xB0\xFFS"},
      {"\xB0", ""}};
  for (const auto& [text, found] : rows) EXPECT_EQ(listed(names.find(text)), found) << text;
  const std::string spread = "F" + std::string(1 << 20, ' ') + "oot";
  EXPECT_EQ(names.find(spread).size(), 4u);
}

TEST(UnitNames, SuggestAndCompleteInOrder) {
  const UnitNames names = makeNames();
  EXPECT_EQ(listed(names.suggest("foop", 9)),
            "A:=foot-N~ a:foot-1=footL~ b:foot-2.0=footL~ foot=footT~");
  EXPECT_EQ(listed(names.suggest("bordfoot", 1)), "c:board-foot=board-footL~");
  EXPECT_EQ(listed(names.suggest("foop", 0)) + listed(names.suggest(std::string(999, 'f'), 9)), "");
  EXPECT_EQ(listed(names.completions("foo", 9)),
            "A:=fooS a:foot-1=footL b:foot-2.0=footL foot=footL A:=foot-N foot=foot poundN "
            "b:foot-2.0=FOOTN~ a:foot-1=FootN~");
  EXPECT_EQ(listed(names.completions("FO", 2)), "b:foot-2.0=FOOTN A:=fooS~");
  EXPECT_EQ(names.completions("", 99).size(), 17u);
}

TEST(UnitNames, AreEmptyWithoutUnits) {
  const UnitNames names(*std::unique_ptr<UnitsEngine>(CreateUnitsEngine()));
  EXPECT_TRUE(names.find("foot").empty() && names.suggest("foot", 9).empty() &&
              names.completions("", 9).empty());
}

}  // namespace
}  // namespace Units
