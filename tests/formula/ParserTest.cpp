#include "formula/FormulaParser.h"

#include <gtest/gtest.h>

#include "formula/BinaryOperatorExpression.h"
#include "formula/NumberConstantExpression.h"
#include "formula/ParenExpression.h"
#include "formula/UnaryOperatorExpression.h"
#include "tests/formula/FormulaSample.h"
#include "tests/support/Messages.h"

namespace {

constexpr const char* noFormula = "no formula";
constexpr const char* unexpected =
    "legacy code dbgWarn: Unexpected parse error. Dresmond 9-May-2004";

struct Row {
  const char* formula;
  const char* outcome;
};

void expectOutcomes(const std::vector<Row>& rows) {
  const Sample sample;
  for (const Row& row : rows) EXPECT_EQ(sample.outcome(row.formula), row.outcome) << row.formula;
}

TEST(Parser, BindsByPriorityAndFromTheLeft) {
  expectOutcomes({{"2^3^2", "64"},
                  {"2-3-4", "-5"},
                  {"8/4/2", "1"},
                  {"8/4*2", "4"},
                  {"2+3*4", "14"},
                  {"2*3+4", "10"},
                  {"2*3^2", "18"},
                  {"2^3*2", "16"},
                  {"(2+3)*4", "20"},
                  {"-2^2", "4"},
                  {"-(2)^2", "4"},
                  {"--2", "2"},
                  {"---(2)", "-2"},
                  {"2--3", "5"},
                  {"2*-3", "-6"},
                  {"2^-1", "0.5"},
                  {"-pi()", "-3.14159265358979"},
                  {"1-(2-(3-(4)))", "-2"}});
}

TEST(Parser, TakesOnlyWhatIsAFormula) {
  expectOutcomes({{"", noFormula},
                  {" \n\t ", noFormula},
                  {"\n\t 7", "7"},
                  {"+2", noFormula},
                  {"1+", noFormula},
                  {"1+*2", noFormula},
                  {"1*+2", noFormula},
                  {"-", noFormula},
                  {"()", noFormula},
                  {"(1", noFormula},
                  {"((1)", noFormula},
                  {"1)", noFormula},
                  {")", noFormula},
                  {"(1+)", noFormula},
                  {"(-)", noFormula},
                  {"2(3)", noFormula},
                  {"(2)3", noFormula},
                  {"(2)(3)", noFormula},
                  {"(2)sin(1)", noFormula},
                  {"sin", noFormula},
                  {"sin+1", noFormula},
                  {"sin)", noFormula},
                  {"abs(1", noFormula},
                  {"abs(-)", noFormula},
                  {"abs(1))", noFormula},
                  {"abs((1))", "1"},
                  {" abs ( -1 ) ", "1"},
                  {"pi()", "3.14159265358979"},
                  {"pi", noFormula},
                  {"pi( )*2", "6.28318530717958"},
                  {"abs(pi())", "3.14159265358979"}});
}

TEST(Parser, PlacesSymbolsByTheirKind) {
  expectOutcomes({{"(2) ft", "24 inch^1"},
                  {"(1+1)ft*2", "48 inch^1"},
                  {"abs(-2) ft", "24 inch^1"},
                  {"-(2) ft", "-24 inch^1"},
                  {"(2) ft^2", "576 inch^2"},
                  {"2+(3) ft", "no value"},
                  {"ft", noFormula},
                  {"ft(2)", noFormula},
                  {"(ft)", noFormula},
                  {"2*ft", noFormula},
                  {"$(5)", "5 dollar^1"},
                  {"$ (2+3)*2", "10 dollar^1"},
                  {"-$(5)", "-5 dollar^1"},
                  {"$", noFormula},
                  {"$()", noFormula},
                  {"$(5", noFormula},
                  {"$$(5)", noFormula},
                  {"$+(5)", noFormula},
                  {"(2)$(5)", noFormula},
                  {"$5", "5 dollar^1"},
                  {"2*$5", "10 dollar^1"},
                  // Where the whole is no literal, a symbol that begins it goes before literals.
                  {"$5*2", noFormula},
                  {"u(2)", noFormula},  // the suffix comes first in the registry
                  {"(2)u", "2 pound^1"},
                  {"u+2", "2 dollar^1"},
                  {"(2)u+2", noFormula}});
}

TEST(Parser, GivesTheSignToTheWholeLiteral) {
  expectOutcomes({{"-5' 6\" + 3 in * 2", "-60 inch^1"},
                  {"-5' 6\"", "-66 inch^1"},
                  {"3-5' 6\"", "no value"},
                  {"-2 ft", "-24 inch^1"},
                  {"-2 C", "271.15 kelvin^1"},
                  {"-(2) C", "-275.15 kelvin^1"},
                  {"- 0", "-0"},
                  {"1--0", "1"},
                  {"(-2) ft", "-24 inch^1"}});
}

TEST(Parser, RefusesALiteralThatItsLastSpaceMade) {
  const Sample sample;
  // The symbol's text is "gap ": with the space that the token loses, the literal loses its unit.
  EXPECT_EQ(sample.outcome("3 gap "), unexpected);
  EXPECT_EQ(sample.outcome("(1)+3 gap "), unexpected);
  EXPECT_EQ(sample.outcome("(1)3 gap "), noFormula);
  EXPECT_EQ(sample.outcome("abs 3 gap "), "Unrecognized identifier: abs 3 gap.");
}

TEST(Parser, StopsAtTheFirstFault) {
  expectOutcomes({{"1+x", "Unrecognized identifier: x."},
                  {"1) + x", noFormula},
                  {"(1)(x)", noFormula},
                  {"sin+x", noFormula},
                  {"1+*x", noFormula},
                  {"x)", "Unrecognized identifier: x."},
                  {"(1) x", "Unrecognized identifier: x."},
                  {"1/0+x", "Unrecognized identifier: x."},
                  {"2 3", "Unrecognized identifier: 2 3."},
                  {"sqrt 4", "Unrecognized identifier: sqrt 4."},
                  {"2 sin(1)", "Unrecognized identifier: 2 sin."},
                  {"3\t+1", "Unrecognized identifier: 3."},
                  {"a,b", "Unrecognized identifier: a,b."}});
}

TEST(Parser, RefusesTokensThatNoTokenizerGives) {
  const SampleUnitMath math;
  const SampleSymbols symbols;
  const auto take = [&](int type, const char* text) {
    return messageOf<std::logic_error>([&] {
      FormulaParser(symbols.texts(), math).take({static_cast<FormulaTokenType>(type), text});
    });
  };
  EXPECT_EQ(take(7, "x"), "legacy code dbgWarn: Unknown token type. Dresmond 8-May-2004");
  EXPECT_EQ(take(1, "%"), unexpected);
  EXPECT_EQ(take(2, "sine"), unexpected);
  EXPECT_FALSE(FormulaParser(symbols.texts(), math).take({FormulaTokenType::UnitSymbol, "f"}));
}

TEST(Parser, LeavesTheResultAloneOnFailure) {
  const Sample sample;
  std::unique_ptr<Expression> root = std::make_unique<ParenExpression>();
  const Expression* const before = root.get();
  EXPECT_FALSE(parseFormula("(1", root, sample.symbols.texts(), sample.math, rejectIdentifier));
  EXPECT_EQ(root.get(), before);
}

std::unique_ptr<Expression> binary(int op) {
  return std::make_unique<BinaryOperatorExpression>(static_cast<FormulaBinaryOperator>(op));
}

std::unique_ptr<Expression> unary() {
  return std::make_unique<UnaryOperatorExpression>(FormulaUnaryOperator::Negate);
}

TEST(Priorities, AreThoseOfTheOperators) {
  const int expected[] = {1, 1, 2, 2, 3};
  for (int op = 1; op <= 5; ++op) EXPECT_EQ(getPriority(*binary(op)), expected[op - 1]) << op;
  EXPECT_EQ(getPriority(*unary()), 4);
  for (const int op : {0, 6, -1})
    EXPECT_EQ(messageOf<std::logic_error>([&] { getPriority(*binary(op)); }),
              "legacy code dbgWarn: Unknown binary operator in getPriority. Dresmond 10-Apr-2003");
  EXPECT_EQ(messageOf<std::logic_error>([] { getPriority(ParenExpression()); }),
            "legacy code dbgWarn: Unknown expresion type in getPriority. Dresmond 10-Apr-2003");
}

TEST(Reduction, NeedsItsOperands) {
  for (const bool isUnary : {true, false})
    for (std::size_t count = 0; count < (isUnary ? 1u : 2u); ++count) {
      ExpressionStack operands;
      ExpressionStack operators;
      for (std::size_t made = 0; made < count; ++made)
        operands.push_back(std::make_unique<ParenExpression>());
      operators.push_back(isUnary ? unary() : binary(1));
      EXPECT_EQ(messageOf<std::logic_error>([&] { reduceOperators(operands, operators, 0); }),
                unexpected);
    }
  ExpressionStack empty;
  EXPECT_EQ(messageOf<Units::ParseException>([&] { pop(empty); }), "Expected an expression.");
}

TEST(Reduction, StopsAtWhatBindsLessOrOpens) {
  const SampleUnitMath math;
  const auto countLeft = [&](int op, int priority) {
    ExpressionStack operands;
    ExpressionStack operators;
    for (int made = 0; made < 3; ++made)
      operands.push_back(std::make_unique<NumberConstantExpression>(made, nullptr, math));
    operators.push_back(std::make_unique<ParenExpression>());
    operators.push_back(binary(1));
    operators.push_back(binary(op));
    reduceOperators(operands, operators, priority);
    return operators.size();
  };
  EXPECT_EQ(countLeft(3, 3), 3u);
  EXPECT_EQ(countLeft(3, 2), 2u);
  EXPECT_EQ(countLeft(3, 1), 1u);
  EXPECT_EQ(countLeft(5, 3), 2u);
  EXPECT_EQ(countLeft(5, 0), 1u);
}

}  // namespace
