#include "formula/BinaryOperatorExpression.h"
#include "formula/Expression.h"
#include "formula/FunctionExpression.h"
#include "formula/NumberConstantExpression.h"
#include "formula/UnaryOperatorExpression.h"
#include "tests/support/Messages.h"
#include "tests/unit/formula/FormulaRows.h"

#include <gtest/gtest.h>

#include <cmath>
#include <map>
#include <utility>

namespace {

LocalNodeArena arena;  // of the nodes that are made by hand

TEST(Evaluation, AddsWhatMatches) {
  expectOutcomes({"2 ft + 3 in = 27 inch^1", "(2 ft) - 3 in = 21 inch^1",
                  "1 st + 1 lb = 15 pound^1",
                  "(1 in)^1000000001 + (1 in)^999999999 = 2 inch^1000000001",
                  "(2 ft)^(1+1/10000000000) + 1 in = " + exact(1 + std::pow(24.0, 1 + 1 / 1e10)) +
                      " inch^1.0000000001"});
  expectEach({"2 ft + 3 lb", "(2 ft) - 3", "3 - (2 ft)", "(2 ft)^2 + 1 in", "1 in + (2 ft)^2",
              "1 rad + 1"},
             "no value");
}

TEST(Evaluation, MultipliesAndDividesUnits) {
  expectOutcomes({"3 ft / 1 in = 36", "2 ft * 3 lb = 72 inch^1 pound^1", "2 * 3 ft = 72 inch^1",
                  "2 / (4 in) = 0.5 inch^-1", "2 ft * 3 /ft = 18",
                  "2 lb / 4 ft / 1 in = 0.041666666666666664 inch^-2 pound^1",
                  "1/0.0000000010000001 = 999999900.0000099"});
  // A unit whose primitive units cancel keeps them on the left alone.
  expectOutcomes(
      {"1 rad * 2 = 2 inch^0", "1 rad * (1 lb * 1 st) = 14 inch^0 pound^2", "2 * 1 rad = 2"});
  expectEach({"1/0", "0/0", "1/0.000000001", "1/-0.000000001", "1/((1 ft) - 12 in)"}, "no value");
}

TEST(Evaluation, RaisesToPowers) {
  expectOutcomes({"(-8)^3.0000000001 = -512", "(-8)^2.9999999999 = -512", "(-2)^-2 = 0.25",
                  "(-8)^0.0000000005 = 1", "0^2 = 0", "0.0000000005^2 = 2.5e-19",
                  "-0.0000000005^2 = 0", "-0.0000000005^0.5 = 0", "10^30 = 1e+30",
                  "10^-200 = 1e-200", "10^-323 = 9.88131291682493e-324", "(1e300*1e300)^-1 = 0",
                  "2^-(1e300*1e300) = 0", "(2 ft)^2 = 576 inch^2", "(4 in)^0.5 = 2 inch^0.5",
                  "(4 ft)^0 = 1", "(-2 in)^3.0000000001 = -8 inch^3",
                  "0.5^0.5 = " + exact(std::sqrt(0.5)),
                  "(4 ft)^0.0000000001 = " + exact(std::pow(48.0, 1e-10))});
  expectEach({"(-8)^(1/3)", "(-8)^1.5", "(-0.5)^(1e300*1e300)", "(-8)^3.000000007",
              "(-8)^0.0000000015", "(-8)^0.000000001", "0^0", "0^-1", "0^0.000000001",
              "10^30.00001", "(-10)^31", "10^400", "10^-324", "(-10)^-401", "0.000001^60"},
             "no value");
  expectEach({"2^(1 ft)", "0^(1 ft)"},
             "Right-hand operand of the power operator must be unitless.");
  expectEach({"(1 rad)^2", "sqrt(1 rad)"},
             "legacy code dbgWarn: Something funny is going on with units. Dresmond 22-Apr-2003");
}

TEST(Evaluation, ComputesFunctions) {
  const std::map<std::string, double> computed = {
      {"sin(2)", std::sin(2.0)},       {"cos(2)", std::cos(2.0)},
      {"tan(2)", std::tan(2.0)},       {"asin(0.5)", std::asin(0.5)},
      {"acos(-0.5)", std::acos(-0.5)}, {"atan(2)", std::atan(2.0)},
      {"ln(2)", std::log(2.0)},        {"asin(1.000000000000001)", std::asin(1.0)},
      {"exp(1)", std::exp(1.0)},       {"asin(-1.00000000000001)", std::asin(-1.0)},
      {"exp(69)", std::exp(69.0)},     {"exp(-740)", std::exp(-740.0)},
      {"pi()", 3.14159265358979},      {"ln(1e-9)", std::log(1e-9)},
      {"acos(1.000000000000001)", 0}};
  for (const auto& [formula, value] : computed) expectEach({formula.c_str()}, exact(value));
  expectOutcomes({"exp(-(1e300*1e300)) = 0", "log(1000) = 3", "log(1e-9) = -9", "sqrt(16) = 4",
                  "sqrt(0) = 0", "sqrt(4 in) = 2 inch^0.5", "sqrt(4 in * 4 in) = 4 inch^1",
                  "abs(-2) = 2", "abs(-2 ft) = 24 inch^1", "round(2.5) = 3", "round(-2.5) = -2",
                  "round(2.4999999999) = 3", "round(1.4 ft) = 17 inch^1",
                  "roundup(3.0000000001) = 3", "roundup(3.01) = 4", "roundup(-1.7 in) = -1 inch^1",
                  "rounddown(2.9999999999) = 3", "rounddown(-2.1 in) = -3 inch^1"});
  expectEach({"tan(pi()/2)", "tan(-pi()/2)", "asin(1.00000000000002)", "acos(-1.00000000000002)",
              "exp(69.1)", "exp(1000)", "exp(-1000)", "log(0.99e-9)", "log(-1)", "ln(0.0000000001)",
              "sqrt(-1)", "sqrt(-1 rad)"},
             "no value");
}

TEST(Evaluation, ComplainsInOrder) {
  expectEach({"1/0 + pi(1)", "1/0 + sqrt()", "1/0 + sin(1 ft)", "sin(1/0)", "-(1/0)", "(1/0) ft",
              "(1/0)^(1 ft)"},
             "no value");
  expectEach({"sqrt()", "ln()", "sqrt() + 1/0"}, "Expected one input to function call.");
  expectEach({"pi(1)", "pi(1/0)", "pi(sin(1 ft))", "pi(1) + 1/0"},
             "Expected no inputs to function call \"pi()\".");
  expectEach({"sin(1 ft) + 1/0", "asin(2 ft)", "log(-1 ft)", "exp(1 rad)"},
             "Function input must be unitless.");
  expectEach({"(1 ft) ft", "$(1 ft)", "(1 rad) ft", "(1) ft ft"},
             "Unit symbol may be applied only to a unitless expression.");
}

std::unique_ptr<Expression> number(double value) {
  return arena.make<NumberConstantExpression>(value);
}

template <class E>
std::unique_ptr<BinaryOperatorExpression> join(E left, int op, E right) {
  auto node = arena.make<BinaryOperatorExpression>(static_cast<FormulaBinaryOperator>(op));
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

/// An exponent of 0 stays on the left side of a product until something is added, and goes on the
/// right side; and a product is the same when its longer side, in parentheses, is used up.
TEST(Evaluation, KeepsExponentsThatCancelOnTheLeftSideAlone) {
  expectOutcomes(
      {"1 rad * $(1) = 1 dollar^1 inch^0", "1 rad * 1 lb * $(2) = 2 dollar^1 inch^0 pound^1",
       "1 lb * (1 rad * $(1)) = 1 dollar^1 pound^1", "1 rad * (1 rad * $(1)) = 1 dollar^1",
       "1 rad * (1 lb * $(1) * $(1)) = 1 dollar^2 inch^0 pound^1",
       "1 in / (1 in * 1 in * 1 in / 1 lb * $(1) * $(1)) = 1 dollar^-2 inch^-2 pound^1",
       "1 in / (1 in * 1 lb) = 1 pound^-1", "1 lb * (1 in)^(1/4) / 1 lb / 1 in = 1 inch^-0.75",
       "1 in * (1 in)^(0-0.99999999999999989) = 1",
       "1 lb / (1 lb)^0.99999999999999978 = 1 pound^2.220446049250313e-16"});
}

/// Rows as "formula = value or message"; without a unit, of formulas that must be unitless.
void expectIn(const char* unit, const std::vector<std::string>& rows) {
  const Sample sample;
  for (const std::string& row : rows) {
    Units::FormulaUnits units = sample.engine.formulaUnits();
    const std::string formula = row.substr(0, row.find(" = "));
    std::string outcome;
    try {
      outcome = exact(unit ? evaluateExpressionInUnit(sample.engine.getUnit(unit), formula,
                                                      rejectIdentifier, sample.texts(),
                                                      sample.engine, units)
                           : evaluateUnitlessExpression(formula, rejectIdentifier, sample.texts(),
                                                        sample.engine, units));
    } catch (const Units::ParseException& thrown) {
      outcome = thrown.what();
    }
    EXPECT_EQ(formula + " = " + outcome, row);
  }
}

TEST(Evaluation, ConvertsIntoTheUnitAskedFor) {
  const std::string unable = " = Unable to parse expression.";
  expectIn("foot", {"2 = 2", "30 in = 2.5", "-5' 6\" = -5.5", "1 lb" + unable, "(1 ft)^2" + unable,
                    "sqrt(9 in)" + unable, "1 rad" + unable, unable, "1/0" + unable, "(" + unable,
                    "1/(2 ft) = " + exact(1 / (1 / 24.0) / 12), "x = Unrecognized identifier: x."});
  expectIn("inch", {"2 /ft = 2", "sqrt((9 in)^3) = 27"});  // 0.5 per inch: every 2 inches
  expectIn("perFoot", {"24 in = " + exact(1 / 24.0 / 0.25), "(1 in)^(0-1.9) = 4"});
  expectIn("celsius", {"20 = 20", "20 C = " + exact(293.15 - 273.15)});
  expectIn("radian", {"2 rad = 2", "sqrt(9 in) = 3"});  // half an inch is cut to none
  expectIn("vast", {"(1 in)^3000000000 = 0.5", "(1 in)^-3000000000" + unable,
                    "(1 in)^2147483647.5 = 0.5", "(1 in)^2147483646.9" + unable,
                    "(1 in)^(1e300*1e300) = 0.5", "(1 in)^-(1e300*1e300)" + unable});
  expectIn(nullptr, {"3 ft / 1 in = 36", "1 ft = Expression must be unitless.",
                     "1 rad = Expression must be unitless.", "1 ft + 1" + unable, "(" + unable,
                     "width = Unrecognized identifier: width."});
}

}  // namespace
