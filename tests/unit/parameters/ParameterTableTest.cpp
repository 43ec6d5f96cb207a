#include "tests/support/Heap.h"
#include "tests/support/HostEngine.h"
#include "tests/support/Messages.h"
#include "tests/support/Sample.h"

#include <gtest/gtest.h>

#include <functional>
#include <new>
#include <string>
#include <utility>
#include <vector>

namespace {

using Units::ParameterTable;
using Units::ParseException;
using Units::UnrecognizedIdentifierException;
using Units::ValidationException;
using Texts = std::vector<std::string>;
using Rows = std::vector<std::pair<std::string, std::string>>;

class Parameters : public testing::Test {
 protected:
  void fill(const Rows& rows) {
    for (const auto& [name, formula] : rows) table_.set(name, formula);
  }

  std::string noValue(const std::string& name) const {
    return messageOf<ParseException>([&] { table_.value(name); });
  }

  const Engine engine_ = sampleEngine();
  ParameterTable table_{*engine_};
};

TEST_F(Parameters, CountInTheirOwnUnit) {
  table_.set("width", "2.3", "inch");
  EXPECT_EQ(table_.value("width"), 2.3);
  EXPECT_EQ(table_.value("width", "inch"), 2.3);
  table_.set("twice", "2 * width");
  EXPECT_EQ(table_.value("twice", "foot"), 4.6 / 12);
  EXPECT_EQ(table_.powers("twice"), (std::map<std::string, double>{{"inch", 1}}));
  table_.set("pitch", "4 in", "perInch");
  EXPECT_EQ(table_.value("pitch"), 0.25);
  table_.set("turns", "pitch * 2 in");
  EXPECT_EQ(table_.value("turns"), 0.5);
  table_.set("width", "3 ft");
  EXPECT_EQ(table_.unitTypeId("width"), "");
  EXPECT_EQ(table_.value("twice", "foot"), 6);
}

TEST_F(Parameters, AreReadInParenthesesWhereverTheyAreReferredTo) {
  fill({{"sum", "1 + 1"},
        {"square", "sum^2"},
        {"price", "3"},
        {"cost", "$ price * 2"},
        {"below", "-20 degC"},
        {"above", "-below"}});
  EXPECT_EQ(table_.value("square"), 4);
  EXPECT_EQ(table_.value("cost", "inch"), 6);
  EXPECT_EQ(table_.value("above", "kelvin"), -253.14999999999998);  // not 20 degC
}

struct NameRow {
  const char* test;
  std::string name;
  std::string refusal;
};

class ParameterNames : public Parameters, public testing::WithParamInterface<NameRow> {};

TEST_P(ParameterNames, AreCheckedWhenTheyAreSet) {
  const std::string &name = GetParam().name, &refusal = GetParam().refusal;
  table_.set("old", "1");
  table_.set("user", "old + 1");
  if (refusal.empty()) {
    table_.rename("old", name);
    EXPECT_EQ(table_.formula("user"), name + " + 1");
    table_.set(name, "4");
    EXPECT_EQ(table_.value("user"), 5);
    return;
  }
  EXPECT_EQ(messageOf<ValidationException>([&] { table_.set(name, "1"); }), refusal);
  EXPECT_EQ(messageOf<ValidationException>([&] { table_.rename("old", name); }), refusal);
  EXPECT_EQ(table_.value("user"), 2);
}

INSTANTIATE_TEST_SUITE_P(
    Parameters, ParameterNames,
    testing::Values(
        NameRow{"Plain", "height", ""}, NameRow{"Underscore", "_", ""},
        NameRow{"Spaces", "room height 2", ""}, NameRow{"Dotted", "D1@Sketch.1", ""},
        NameRow{"Accent", "\xC3\xA4", ""}, NameRow{"Subscript", "x\xE2\x82\x81", ""},
        NameRow{"LikeASymbol", "inner", ""}, NameRow{"LikeAFunction", "sqrt2", ""},
        NameRow{"Empty", "", "Parameter name must not be empty."},
        NameRow{"Digit", "1e", "Parameter name 1e is not an identifier."},
        NameRow{"Operator", "a-b", "Parameter name a-b is not an identifier."},
        NameRow{"Comma", "a,b", "Parameter name a,b is not an identifier."},
        NameRow{"SpaceBehind", "a ", "Parameter name a  is not an identifier."},
        NameRow{"Tab", "a\tb", "Parameter name a\\x09b is not an identifier."},
        NameRow{"MinusSign", "a\xE2\x88\x92", "Parameter name a\xE2\x88\x92 is not an identifier."},
        NameRow{"Power", "x\xC2\xB2", "Parameter name x\xC2\xB2 is not an identifier."},
        NameRow{"NoUtf8", "a\xFF", "Parameter name a\\xFF is not an identifier."},
        NameRow{"Function", "sqrt",
                "Parameter name sqrt cannot be used. Formulas read sqrt as a function."},
        NameRow{"Unit", "ft", "Parameter name ft cannot be used. Formulas read ft as a unit."},
        NameRow{"BehindAUnit", "in 2",
                "Parameter name in 2 cannot be used. Formulas read in as a unit."}),
    [](const auto& row) { return row.param.test; });

struct ProblemRow {
  const char* test;
  Rows rows;
  std::string name;
  std::string message;
};

class ParameterProblems : public Parameters, public testing::WithParamInterface<ProblemRow> {};

TEST_P(ParameterProblems, AreNamedInFullAndConcernNothingElse) {
  const std::string &name = GetParam().name, &message = GetParam().message;
  fill(GetParam().rows);
  fill({{"sound", "2"}, {"twice", "2 * sound"}});
  EXPECT_EQ(noValue(name), message);
  EXPECT_EQ(messageOf<ParseException>([&] { table_.powers(name); }), message);
  EXPECT_EQ(table_.value("twice"), 4);
  const auto problems = table_.problems();
  ASSERT_EQ(problems.size(), 1u);
  EXPECT_EQ(problems[0].message, noValue(problems[0].names[0]));
}

INSTANTIATE_TEST_SUITE_P(
    Parameters, ParameterProblems,
    testing::Values(
        ProblemRow{
            "Missing", {{"a", "b + 1"}}, "a", "Parameter a refers to b, which is not defined."},
        ProblemRow{"TwoMissing",
                   {{"a", "c + b + c"}},
                   "a",
                   "Parameter a refers to names that are not defined: c, b."},
        ProblemRow{"MissingBelow",
                   {{"a", "b"}, {"b", "c"}, {"c", "d"}},
                   "a",
                   "Parameter a depends on c. Parameter c refers to d, which is not defined."},
        ProblemRow{"Itself", {{"a", "a"}}, "a", "Parameters depend on each other: a -> a."},
        ProblemRow{"Cycle",
                   {{"a", "b"}, {"b", "1 + c"}, {"c", "a"}},
                   "b",
                   "Parameters depend on each other: b -> c -> a -> b."},
        ProblemRow{"ShortestCycle",
                   {{"a", "b + c"}, {"b", "c"}, {"c", "a"}},
                   "c",
                   "Parameters depend on each other: c -> a -> c."},
        ProblemRow{"BehindACycle",
                   {{"a", "b"}, {"b", "a"}, {"c", "b"}},
                   "c",
                   "Parameter c depends on b. Parameters depend on each other: b -> a -> b."},
        ProblemRow{
            "Refused",
            {{"a", "b + 1 ft"}, {"b", "2"}},
            "a",
            "Formula of parameter a: `+` needs the same units on both sides: left is a plain "
            "number, right is a n."},
        ProblemRow{
            "RefusedBelow",
            {{"a", "b"}, {"b", "1 / zero"}, {"zero", "0"}},
            "a",
            "Parameter a depends on b. Formula of parameter b: The divisor counts as 0: it is "
            "between -0.000000001 and 0.000000001."}),
    [](const auto& row) { return row.param.test; });

TEST_F(Parameters, RefuseWhatNoOtherParameterCanCure) {
  table_.set("a", "1");
  const auto refusal = [&](const std::string& formula) {
    return messageOf<ParseException>([&] { table_.set("a", formula); });
  };
  EXPECT_EQ(refusal(""), "Formula of parameter a: The formula is empty.");
  EXPECT_EQ(refusal("5 fot"), "Formula of parameter a: `fot` is not a unit. Did you mean `ft`?");
  EXPECT_EQ(refusal("2 *"),
            "Formula of parameter a: The formula ends where a number is expected, after `*`.");
  EXPECT_EQ(refusal("1) + (2"),
            "Formula of parameter a: `)` closes a parenthesis that was never opened.");
  EXPECT_EQ(refusal("$ 20"),
            "Formula of parameter a: A number after `$` needs parentheses, unless the "
            "formula ends with it.");
  EXPECT_EQ(messageOf<UnrecognizedIdentifierException>([&] { table_.set("a", "1", "mile"); }),
            "Could not find unit with typeid mile.");
  table_.set("long", "2 ft");
  EXPECT_EQ(messageOf<ParseException>([&] { table_.value("long", "kelvin"); }),
            "Value of parameter long: The result is a n; `n` measures a value in n.");
  EXPECT_EQ(noValue("long"), "Parameter long has units, so it is not a plain number.");
  for (const auto& action : std::vector<std::function<void()>>{
           [&] { table_.value("b"); }, [&] { table_.remove("b"); },
           [&] { table_.rename("b", "c"); }, [&] { table_.formula("b"); },
           [&] { table_.explain("b"); }})
    EXPECT_EQ(messageOf<UnrecognizedIdentifierException>(action), "Could not find parameter b.");
  EXPECT_EQ(table_.value("a"), 1);
  EXPECT_EQ(table_.size(), 2u);
}

TEST_F(Parameters, AreRenamedInFormulasAlone) {
  fill(
      {{"x", "3"}, {"ax", "1"}, {"y", "x*( x\n)-ax+ x ^2"}, {"z", "y + x"}, {"waits", "long + 1"}});
  table_.evaluate();
  table_.rename("x", "long");
  EXPECT_EQ(table_.formula("y"), "long*( long\n)-ax+ long ^2");
  EXPECT_EQ(table_.names(), (Texts{"ax", "long", "waits", "y", "z"}));
  EXPECT_EQ(table_.references("y"), (Texts{"ax", "long"}));
  EXPECT_EQ(table_.dependents("long"), (Texts{"waits", "y", "z"}));
  EXPECT_EQ(table_.evaluate(), 1u) << "only what had waited for the name";
  EXPECT_EQ(table_.value("z"), 20);
  EXPECT_EQ(table_.value("waits"), 4);
  EXPECT_EQ(messageOf<ValidationException>([&] { table_.rename("y", "z"); }),
            "Parameter z is already defined.");
  addSuffix(*engine_, "ratio", "foot", "u/ax");
  table_.set("q", "1 / ax");
  table_.rename("q", "v");  // nothing refers to it
  table_.set("w", "long/ax");
  EXPECT_EQ(
      messageOf<ValidationException>([&] { table_.rename("long", "u"); }),
      "Parameter long cannot be renamed to u, because the formula of w would be read differently.");
  EXPECT_EQ(table_.value("w"), 3);
}

TEST_F(Parameters, RenamedIntoACycleSayIt) {
  fill({{"a", "x"}, {"x", "b + 1"}, {"self", "self + 1"}, {"user", "a"}});
  EXPECT_EQ(noValue("user"),
            "Parameter user depends on x. Parameter x refers to b, which is not defined.");
  table_.rename("a", "b");
  EXPECT_EQ(noValue("user"),
            "Parameter user depends on b. Parameters depend on each other: b -> x -> b.");
  table_.rename("self", "me");
  EXPECT_EQ(noValue("me"), "Parameters depend on each other: me -> me.");
  table_.remove("me");
  table_.set("x", "1");
  EXPECT_EQ(table_.value("user"), 1);
  EXPECT_TRUE(table_.problems().empty());
}

TEST_F(Parameters, AreEvaluatedOnceAndAgainOnlyIfTheyDependOnAChange) {
  const int length = 100000;
  const auto name = [](int i) { return "p" + std::to_string(i); };
  for (const bool isBackward : {false, true}) {
    ParameterTable chain(*engine_);
    for (int i = 0; i < length; ++i) {
      const int at = isBackward ? length - 1 - i : i;
      chain.set(name(at), at == 0 ? "1 in" : name(at - 1) + " + 1 in");
    }
    EXPECT_EQ(chain.evaluate(), 100000u);
    EXPECT_EQ(chain.value(name(length - 1), "inch"), length);
    chain.set(name(length - 1), "p0 - 1 in");
    EXPECT_EQ(chain.evaluate(), 1u);
    chain.set("p99000", "0 in");
    EXPECT_EQ(chain.evaluate(), 999u);
    chain.remove("p50000");
    EXPECT_EQ(chain.evaluate(), 0u);
    EXPECT_EQ(chain.problems().size(), 1u);
    chain.set("p50000", "p49999");
    chain.set("p0", "p98999");
    EXPECT_EQ(chain.problems().at(0).names.size(), 99000u);
    EXPECT_EQ(chain.explain("p98999").size(), 99000u);
  }
}

TEST_F(Parameters, AreEvaluatedOnceHoweverManyPathsLeadToThem) {
  table_.set("a0", "1");
  table_.set("b0", "1");
  for (int i = 1; i <= 60; ++i) {
    const std::string below = std::to_string(i - 1);
    table_.set("a" + std::to_string(i), "(a" + below + " + b" + below + ") / 2");
    table_.set("b" + std::to_string(i), "a" + below + " * b" + below);
  }
  EXPECT_EQ(table_.evaluate(), 122u);
  EXPECT_EQ(table_.value("b60"), 1);
  EXPECT_EQ(table_.explain("b60").size(), 121u);
  for (int i = 0; i < 1000; ++i) table_.set("c" + std::to_string(i), "b60 + " + std::to_string(i));
  EXPECT_EQ(table_.evaluate(), 1000u);
  for (int i = 0; i < 10; ++i) table_.set("b60", std::to_string(i));
  EXPECT_EQ(table_.evaluate(), 1001u);
  EXPECT_EQ(table_.value("c999"), 1008);
}

TEST_F(Parameters, ReadNewDefinitionsWhenTheyAreToldTo) {
  fill({{"mm", "half * 2"}, {"twice", "2 * mm"}, {"half", "1"}});
  EXPECT_EQ(table_.value("twice"), 4);
  addSuffix(*engine_, "mm", "inch", "mm");
  table_.set("half", "1.5");
  EXPECT_EQ(table_.value("twice"), 6) << "as it was read";
  table_.reevaluate();
  EXPECT_EQ(noValue("twice"),
            "Formula of parameter twice: `mm` is the text of a unit and must follow a "
            "number or `)`.");
  EXPECT_EQ(table_.value("mm"), 3);
  const auto problems = table_.problems();
  ASSERT_EQ(problems.size(), 2u);
  EXPECT_EQ(problems[0].message, "Parameter name mm cannot be used. Formulas read mm as a unit.");
  table_.rename("mm", "thickness");
  table_.set("twice", "2 * thickness");
  EXPECT_EQ(table_.value("twice"), 6);
}

TEST_F(Parameters, TakeAnyEngine) {
  Units::HostEngine host(Units::HostEngine::Inner(sampleEngine().release()));
  ParameterTable table(host);
  table.set("a", "1 ft");
  table.set("b", "2 * a", "inch");
  EXPECT_EQ(table.value("b"), 24);
  addSuffix(*host.inner, "yards", "foot", "yd");
  EXPECT_THROW(table.set("c", "3 yd"), ParseException);
  table.reevaluate();
  table.set("c", "3 yd + b");
  EXPECT_EQ(table.value("c", "foot"), 5);
}

/// Everything that a table tells.
std::string told(const ParameterTable& table) {
  std::string all;
  for (const std::string& name : table.names()) all += table.explainJson(name) + '\n';
  for (const auto& problem : table.problems()) all += problem.message + '\n';
  return all;
}

TEST_F(Parameters, AreAsTheyWereWhenAnAllocationFails) {
  const std::vector<std::function<void(ParameterTable&)>> changes = {
      [](ParameterTable& table) { table.set("e", "(a + new) * another one"); },
      [](ParameterTable& table) { table.set("a", "b + 2 in", "foot"); },
      [](ParameterTable& table) { table.rename("a", "a much longer name than before"); },
      [](ParameterTable& table) { table.rename("a", "missing"); },
      [](ParameterTable& table) { table.remove("a"); },
      [](ParameterTable& table) { table.reevaluate(); },
      [](ParameterTable& table) { table.evaluate(); },
      [](ParameterTable& table) { table.explain("d"); }};
  long count = 0;
  for (std::size_t i = 0; i < changes.size(); ++i) {
    std::string after;
    long index = 0;
    for (bool failed = true; failed; ++index, ++count)
      for (const bool isStale : {true, false}) {
        ParameterTable table(*engine_);
        for (const auto& [name, formula] :
             Rows{{"a", "2 ft"}, {"b", "a * 3"}, {"c", "b + a"}, {"d", "missing + c * c"}})
          table.set(name, formula);
        const std::string before = isStale ? "" : told(table);
        const long blocks = heap::liveBlocks();
        bool threw = false;
        heap::fail(index, false);
        try {
          changes[i](table);
        } catch (const std::bad_alloc&) {
          threw = true;
        }
        failed = heap::hasFailed();
        heap::succeed();
        ASSERT_EQ(threw, failed) << "change " << i << ", allocation " << index;
        if (!threw) continue;
        if (!isStale) {
          EXPECT_EQ(told(table), before) << "change " << i << ", allocation " << index;
          EXPECT_EQ(heap::liveBlocks(), blocks) << "change " << i << ", allocation " << index;
        }
        changes[i](table);
        if (after.empty()) after = told(table);
        EXPECT_EQ(told(table), after) << "change " << i << ", allocation " << index;
      }
  }
  EXPECT_GT(count, 100);
}

}  // namespace
