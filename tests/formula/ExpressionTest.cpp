#include "formula/Expression.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

#include "formula/BinaryOperatorExpression.h"
#include "formula/FunctionExpression.h"
#include "formula/NumberConstantExpression.h"
#include "formula/UnaryOperatorExpression.h"
#include "tests/formula/FormulaSample.h"
#include "tests/support/Messages.h"

namespace {

constexpr const char* noValue = "no value";

struct Row {
  const char* formula;
  std::string outcome;
};

void expectOutcomes(const std::vector<Row>& rows) {
  const Sample sample;
  for (const Row& row : rows) EXPECT_EQ(sample.outcome(row.formula), row.outcome) << row.formula;
}

TEST(Evaluation, AddsWhatMatches) {
  expectOutcomes({{"2 ft + 3 in", "27 inch^1"},
                  {"(2 ft) - 3 in", "21 inch^1"},
                  {"2 ft - 3 in", "27 inch^1"},  // a single literal
                  {"2 ft + 3 lb", noValue},
                  {"(2 ft) - 3", noValue},
                  {"3 - (2 ft)", noValue},
                  {"1 st + 1 lb", "15 pound^1"},
                  {"(2 ft)^2 + 1 in", noValue},
                  {"(2 ft)^(1+1/10000000000) + 1 in",
                   exact(1 + std::pow(24.0, 1 + 1 / 1e10)) + " inch^1.0000000001"},
                  {"1 rad + 1", noValue}});
}

TEST(Evaluation, MultipliesAndDividesUnits) {
  expectOutcomes({{"3 ft / 1 in", "36"},
                  {"2 ft * 3 lb", "72 inch^1 pound^1"},
                  {"2 * 3 ft", "72 inch^1"},
                  {"2 / (4 in)", "0.5 inch^-1"},
                  {"2 ft * 3 /ft", "18"},
                  {"2 lb / 4 ft / 1 in", "0.041666666666666664 inch^-2 pound^1"},
                  // A unit whose primitive units cancel keeps them on the left alone.
                  {"1 rad * 2", "2 inch^0"},
                  {"2 * 1 rad", "2"},
                  {"1/0", noValue},
                  {"1/0.000000001", noValue},
                  {"1/-0.000000001", noValue},
                  {"1/0.0000000010000001", "999999900.0000099"},
                  {"1/((1 ft) - 12 in)", noValue},
                  {"0/0", noValue}});
}

TEST(Evaluation, RaisesToPowers) {
  expectOutcomes({{"2^0.5", exact(std::sqrt(2.0))},
                  {"(-8)^(1/3)", noValue},
                  {"(-8)^3.0000000001", "-512"},
                  {"(-8)^2.9999999999", "-512"},
                  {"(-8)^3.0001", noValue},
                  {"(-2)^-2", "0.25"},
                  {"0^0", noValue},
                  {"0^-1", noValue},
                  {"0^0.000000001", noValue},
                  {"0^2", "0"},
                  {"0.0000000005^2", "2.5e-19"},
                  {"-0.0000000005^2", "0"},
                  {"-0.0000000005^0.5", "0"},
                  {"10^30", "1e+30"},
                  {"10^30.00001", noValue},
                  {"(-10)^31", noValue},
                  {"10^400", noValue},
                  {"10^-200", "1e-200"},
                  {"(1*1e-200)^2", noValue},  // near zero
                  {"10^-323", "9.88131291682493e-324"},
                  {"10^-324", noValue},  // underflow
                  {"(-10)^-401", noValue},
                  {"(2 ft)^2", "576 inch^2"},
                  {"(4 in)^0.5", "2 inch^0.5"},
                  {"(4 ft)^0", "1"},
                  {"(4 ft)^0.0000000001", exact(std::pow(48.0, 1e-10))},
                  {"(-2 in)^3.0000000001", "-8 inch^3"},
                  {"2^(1 ft)", "Right-hand operand of the power operator must be unitless."},
                  {"(1 rad)^2",
                   "legacy code dbgWarn: Something funny is going on with units. Dresmond "
                   "22-Apr-2003"}});
}

TEST(Evaluation, ComputesFunctions) {
  expectOutcomes({{"sin(2)", exact(std::sin(2.0))},
                  {"cos(2)", exact(std::cos(2.0))},
                  {"tan(2)", exact(std::tan(2.0))},
                  {"tan(pi()/2)", noValue},
                  {"tan(-pi()/2)", noValue},
                  {"asin(0.5)", exact(std::asin(0.5))},
                  {"asin(1.000000000000001)", exact(std::asin(1.0))},
                  {"asin(-1.00000000000001)", exact(std::asin(-1.0))},
                  {"asin(1.00000000000002)", noValue},
                  {"acos(-0.5)", exact(std::acos(-0.5))},
                  {"acos(1.000000000000001)", "0"},
                  {"acos(-1.00000000000002)", noValue},
                  {"atan(2)", exact(std::atan(2.0))},
                  {"exp(1)", exact(std::exp(1.0))},
                  {"exp(69)", exact(std::exp(69.0))},
                  {"exp(69.1)", noValue},
                  {"exp(1000)", noValue},
                  {"exp(-740)", exact(std::exp(-740.0))},
                  {"exp(-1000)", noValue},
                  {"log(1000)", "3"},
                  {"log(1e-9)", "-9"},
                  {"log(0.99e-9)", noValue},
                  {"log(-1)", noValue},
                  {"ln(2)", exact(std::log(2.0))},
                  {"ln(0.0000000001)", noValue},
                  {"sqrt(16)", "4"},
                  {"sqrt(4 in * 4 in)", "4 inch^1"},
                  {"sqrt(4 in)", "2 inch^0.5"},
                  {"sqrt(-1)", noValue},
                  {"sqrt(-1 rad)", noValue},
                  {"abs(-2)", "2"},
                  {"abs(-2 ft)", "24 inch^1"},
                  {"round(2.5)", "3"},
                  {"round(-2.5)", "-2"},
                  {"round(2.4999999999)", "3"},
                  {"round(1.4 ft)", "17 inch^1"},
                  {"roundup(3.0000000001)", "3"},
                  {"roundup(3.01)", "4"},
                  {"roundup(-1.7 in)", "-1 inch^1"},
                  {"rounddown(2.9999999999)", "3"},
                  {"rounddown(-2.1 in)", "-3 inch^1"}});
}

TEST(Evaluation, ComplainsInOrder) {
  const std::string one = "Expected one input to function call.";
  const std::string none = "Expected no inputs to function call \"pi()\".";
  const std::string unitless = "Function input must be unitless.";
  const std::string symbol = "Unit symbol may be applied only to a unitless expression.";
  expectOutcomes({{"sqrt()", one},
                  {"ln()", one},
                  {"pi(1)", none},
                  {"pi(1/0)", none},
                  {"pi(sin(1 ft))", none},
                  {"1/0 + pi(1)", noValue},
                  {"pi(1) + 1/0", none},
                  {"1/0 + sqrt()", noValue},
                  {"sqrt() + 1/0", one},
                  {"1/0 + sin(1 ft)", noValue},
                  {"sin(1 ft) + 1/0", unitless},
                  {"sin(1/0)", noValue},
                  {"asin(2 ft)", unitless},
                  {"log(-1 ft)", unitless},
                  {"-(1/0)", noValue},
                  {"(1/0) ft", noValue},
                  {"(1 ft) ft", symbol},
                  {"$(1 ft)", symbol},
                  {"(1 rad) ft", symbol},
                  {"(1) ft ft", symbol},
                  {"(1/0)^(1 ft)", noValue},
                  {"0^(1 ft)", "Right-hand operand of the power operator must be unitless."}});
}

TEST(Evaluation, KnowsPiToItsLastBit) {
  const Sample sample;
  std::unique_ptr<Expression> root;
  double value = 0;
  UnitPowerMap units;
  ASSERT_TRUE(parseFormula("pi()", root, sample.symbols.texts(), sample.math, nullptr));
  ASSERT_TRUE(root->evaluate(value, units));
  std::uint64_t bits = 0;
  std::memcpy(&bits, &value, sizeof bits);
  EXPECT_EQ(bits, 0x400921FB54442D11u);
}

std::unique_ptr<Expression> number(double value) {
  return std::make_unique<NumberConstantExpression>(value, nullptr, SampleUnitMath());
}

template <class E>
std::unique_ptr<BinaryOperatorExpression> join(E left, int op, E right) {
  auto node = std::make_unique<BinaryOperatorExpression>(static_cast<FormulaBinaryOperator>(op));
  node->setOperands(std::move(left), std::move(right));
  return node;
}

bool evaluates(const Expression& node) {
  double value = 0;
  UnitPowerMap units;
  return node.evaluate(value, units);
}

std::string complaint(const Expression& node) {
  return messageOf<std::logic_error>([&] { evaluates(node); });
}

TEST(Evaluation, ComplainsOfUnknownOperatorsAndFunctions) {
  const auto noQuotient = [] { return std::unique_ptr<Expression>(join(number(1), 4, number(0))); };
  for (const int op : {0, 6}) {
    EXPECT_EQ(complaint(*join(number(1), op, number(2))),
              "legacy code dbgWarn: Bad FormulaBinaryOperator in "
              "BinaryOperatorExpression::evaluate. Dresmond 10-Apr-2003");
    EXPECT_FALSE(evaluates(*join(noQuotient(), op, number(2))));  // operands come first
    EXPECT_FALSE(evaluates(*join(number(2), op, noQuotient())));
  }
  for (const int op : {0, 2}) {
    UnaryOperatorExpression node(static_cast<FormulaUnaryOperator>(op));
    node.setOperand(noQuotient());
    EXPECT_EQ(complaint(node),
              "legacy code dbgWarn: Bad FormulaUnaryOperator in UnaryOperatorExpression::evaluate. "
              "Dresmond 10-Apr-2003");
  }
  for (const int function : {0, 16}) {
    FunctionExpression node(static_cast<FormulaFunction>(function));
    node.addInput(noQuotient());
    EXPECT_EQ(complaint(node),
              "legacy code dbgWarn: Bad FormulaFunction in FunctionExpression::evaluate. Dresmond "
              "10-Apr-2003");
  }
  FunctionExpression two(FormulaFunction::Sin);
  two.addInput(noQuotient());
  two.addInput(noQuotient());
  EXPECT_EQ(messageOf<Units::ParseException>([&] { evaluates(two); }),
            "Expected one input to function call.");
}

TEST(Evaluation, EndsAtTheFirstOperandWithoutValue) {
  FunctionExpression* const complaining = new FunctionExpression(FormulaFunction::Sin);
  const auto node = join(std::unique_ptr<Expression>(join(number(1), 4, number(0))), 1,
                         std::unique_ptr<Expression>(complaining));
  EXPECT_FALSE(evaluates(*node));
}

TEST(UnitPowers, MatchWithinTolerance) {
  EXPECT_TRUE(doPowersMatch({}, {}));
  EXPECT_TRUE(doPowersMatch({{"a", 1}, {"b", 2}}, {{"a", 1 + 1e-9}, {"b", 2}}));
  EXPECT_TRUE(doPowersMatch({{"a", 4e-10}}, {{"a", -4e-10}}));
  EXPECT_FALSE(doPowersMatch({{"a", 1}}, {{"a", 1 + 3e-9}}));
  EXPECT_FALSE(doPowersMatch({{"a", 1}}, {{"b", 1}}));
  EXPECT_FALSE(doPowersMatch({{"a", 0}}, {}));
}

TEST(UnitPowers, LoseWhatCancels) {
  const double gone = 2.2e-16;
  UnitPowerMap powers = {{"a", 1}, {"b", 2}, {"d", 1}};
  multiplyPowers(powers, {{"a", -1 + 1.2e-16}, {"b", 1}, {"c", gone}, {"e", 2.3e-16}});
  EXPECT_EQ(powers, (UnitPowerMap{{"b", 3}, {"d", 1}, {"e", 2.3e-16}}));
  dividePowers(powers, {{"b", 3}, {"c", 2}, {"d", std::numeric_limits<double>::quiet_NaN()}});
  EXPECT_EQ(powers, (UnitPowerMap{{"c", -2}, {"e", 2.3e-16}}));
}

TEST(UnitPowers, AreRaised) {
  const auto raised = [](UnitPowerMap powers, double exponent) {
    raisePowers(powers, exponent);
    return powers;
  };
  EXPECT_EQ(raised({{"a", 2}, {"b", -1}}, 0.5), (UnitPowerMap{{"a", 1}, {"b", -0.5}}));
  EXPECT_EQ(raised({{"a", 0}}, 1e-9), UnitPowerMap{});
  for (const double exponent : {0.0, 1e-10, std::numeric_limits<double>::quiet_NaN()})
    EXPECT_EQ(messageOf<std::logic_error>([&] {
                raised({{"a", exponent}}, 2e-6);
              }),
              "legacy code dbgWarn: Something funny is going on with units. Dresmond 22-Apr-2003");
}

TEST(UnitPowers, AreCutToIntegers) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  for (const auto& [exponent, cut] :
       std::vector<std::pair<double, int>>{{2.9, 2},
                                           {-2.9, -2},
                                           {-0.5, 0},
                                           {2147483646.9, 2147483646},
                                           {2147483647.5, 2147483647},
                                           {1e300, 2147483647},
                                           {infinity, 2147483647},
                                           {-2147483648.5, -2147483647 - 1},
                                           {-infinity, -2147483647 - 1},
                                           {std::numeric_limits<double>::quiet_NaN(), 0}})
    EXPECT_EQ(truncatePowers({{"a", exponent}}), (Units::PrimitivePowers{{"a", cut}})) << exponent;
}

struct InUnit {
  const char* unit;
  const char* formula;
  double value;
};

TEST(EvaluationInUnit, ConvertsWhatHasUnits) {
  const Sample sample;
  for (const InUnit& row :
       std::vector<InUnit>{{"foot", "2", 2},
                           {"foot", "30 in", 2.5},
                           {"foot", "-5' 6\"", -5.5},
                           {"inch", "2 /ft", 2},  // 0.5 per inch: every 2 inches
                           {"perFoot", "24 in", 1.0 / 6},
                           {"foot", "1/(2 ft)", 1.0 / 0.041666666666666664 / 12},
                           {"celsius", "20 C", 293.15 - 273.15},
                           {"celsius", "20", 20},
                           {"radian", "sqrt(9 in)", 3},  // half an inch is cut to none
                           {"radian", "2 rad", 2},
                           {"inch", "sqrt((9 in)^3)", 27},
                           {"huge", "(1 in)^3000000000", -0.5}})
    EXPECT_EQ(evaluateExpressionInUnit(sampleUnit(row.unit), row.formula, rejectIdentifier,
                                       sample.symbols.texts(), sample.math),
              row.value)
        << row.formula;
}

TEST(EvaluationInUnit, RefusesWhatMeasuresSomethingElse) {
  const Sample sample;
  for (const auto& [unit, formula] :
       std::vector<std::pair<const char*, const char*>>{{"foot", "1 lb"},
                                                        {"foot", "(1 ft)^2"},
                                                        {"foot", "sqrt(9 in)"},
                                                        {"foot", "1 rad"},
                                                        {"foot", ""},
                                                        {"foot", "1/0"},
                                                        {"huge", "(1 in)^-3000000000"}})
    EXPECT_EQ(messageOf<Units::ParseException>([&, f = formula, u = unit] {
                evaluateExpressionInUnit(sampleUnit(u), f, rejectIdentifier, sample.symbols.texts(),
                                         sample.math);
              }),
              "Unable to parse expression.")
        << formula;
}

TEST(EvaluationUnitless, RefusesUnits) {
  const Sample sample;
  const auto evaluate = [&](const char* formula) {
    return evaluateUnitlessExpression(formula, rejectIdentifier, sample.symbols.texts(),
                                      sample.math);
  };
  EXPECT_EQ(evaluate("3 ft / 1 in"), 36);
  for (const auto& [formula, message] : std::vector<std::pair<const char*, const char*>>{
           {"1 ft", "Expression must be unitless."},
           {"1 rad", "Expression must be unitless."},
           {"1 ft + 1", "Unable to parse expression."},
           {"(", "Unable to parse expression."},
           {"width", "Unrecognized identifier: width."}})
    EXPECT_EQ(messageOf<Units::ParseException>([&, f = formula] { evaluate(f); }), message);
}

}  // namespace
