#include "formula/BinaryOperatorExpression.h"
#include "formula/FormulaParser.h"
#include "formula/ParenExpression.h"
#include "formula/UnaryOperatorExpression.h"
#include "tests/support/Messages.h"
#include "tests/unit/formula/FormulaRows.h"

#include <gtest/gtest.h>

namespace {

LocalNodeArena arena;  // of the nodes that are made by hand

constexpr const char* unexpected =
    "legacy code dbgWarn: Unexpected parse error. Dresmond 9-May-2004";

TEST(Parser, TakesOnlyWhatIsAFormula) {
  expectEach(
      {"\n\t 7", "7", "(7)", " abs ( -7 ) ", "abs((7))", "pi( )*0+7", "((3)+4)", "(((2)*3)+((1)))"},
      "7");
  expectEach({"",     " \n\t ", "+2",      "1+",   "1+*2",  "1*+2", "-",     "()",
              "(1",   "((1)",   "((1)))",  "(())", "1)",    ")",    "(1+)",  "(-)",
              "2(3)", "(2)3",   "(2)(3)",  "sin",  "sin+1", "sin)", "abs(1", "(2)sin(1)",
              "pi",   "abs(-)", "abs(1))", "())",  "2(",    "(2)(", "(2)sin"},
             "no formula");
}

TEST(Parser, PlacesSymbolsByTheirKind) {
  expectOutcomes({"(2) ft = 24 inch^1", "((2) ft) = 24 inch^1", "(1+1)ft*2 = 48 inch^1",
                  "abs(-2) ft = 24 inch^1", "-(2) ft = -24 inch^1", "(2) ft^2 = 576 inch^2",
                  "$(5) = 5 dollar^1", "$ (2+3)*2 = 10 dollar^1", "-$(5) = -5 dollar^1",
                  "$5 = 5 dollar^1", "2*$5 = 10 dollar^1", "(2)u = 2 pound^1", "u+2 = 2 dollar^1"});
  expectEach({"ft", "ft(2)", "(ft)", "2*ft", "$", "$()", "$())", "(2)$", "$(5", "$$(5)", "$+(5)",
              "(2)$(5)", "2*ft(3)"},
             "no formula");
  // The suffix comes first in the registry; but a literal looks for a prefix before its number.
  expectEach({"u(2)", "(2)u+2"}, "no formula");
  // Where the whole is no literal, a symbol that begins it goes before shorter literals.
  expectEach({"$5*2", "u5*2"}, "no formula");
}

TEST(Parser, RefusesALiteralThatItsLastSpaceMade) {
  Sample sample;
  // The symbol's text is "gap ": with the space that the token loses, the literal loses its unit.
  EXPECT_EQ(sample.outcome("3 gap "), unexpected);
  EXPECT_EQ(sample.outcome("(1)+3 gap "), unexpected);
  EXPECT_EQ(sample.outcome("(1)3 gap "), "no formula");
  EXPECT_EQ(sample.outcome("abs 3 gap "), "Unrecognized identifier: abs 3 gap.");
  sample.add("gap", "inch", Units::Placement::Suffix);
  EXPECT_EQ(sample.outcome("3 gap "), "3 inch^1");
}

TEST(Parser, StopsAtTheFirstFault) {
  expectEach({"1+x", "x)", "(1) x", "1/0+x", "(x"}, "Unrecognized identifier: x.");
  expectEach({"1) + x", "(1)(x)", "sin+x", "1+*x"}, "no formula");
  expectOutcomes({"2 3 = Unrecognized identifier: 2 3.", "a,b = Unrecognized identifier: a,b.",
                  "sqrt 4 = Unrecognized identifier: sqrt 4.",
                  "2 sin(1) = Unrecognized identifier: 2 sin.",
                  "3\t+1 = Unrecognized identifier: 3."});
}

TEST(Parser, RefusesTokensThatNoTokenizerGives) {
  const Sample sample;
  Units::FormulaUnits units = sample.engine.formulaUnits();
  const auto take = [&](int type, const char* text) {
    return messageOf<std::logic_error>([&] {
      FormulaParser(arena, sample.texts(), sample.engine, units)
          .take({static_cast<FormulaTokenType>(type), text});
    });
  };
  EXPECT_EQ(take(8, "x"), "legacy code dbgWarn: Unknown token type. Dresmond 8-May-2004");
  EXPECT_EQ(take(1, "%"), unexpected);
  EXPECT_EQ(take(2, "sine"), unexpected);
  FormulaParser parser(arena, sample.texts(), sample.engine, units);
  EXPECT_EQ(parser.take({FormulaTokenType::Number, "1", 1.0}), FormulaReason::Done);
  EXPECT_EQ(messageOf<std::logic_error>([&] {
              parser.take({FormulaTokenType::Operator, "%"});
            }),
            unexpected);
  EXPECT_EQ(FormulaParser(arena, sample.texts(), sample.engine, units)
                .take({FormulaTokenType::UnitSymbol, "f"}),
            FormulaReason::UnusableSymbol);
}

TEST(Parser, LeavesTheResultAloneOnFailure) {
  const Sample sample;
  std::unique_ptr<Expression> root = arena.make<ParenExpression>();
  const Expression* const before = root.get();
  Units::FormulaUnits units = sample.engine.formulaUnits();
  EXPECT_EQ(parseFormula("(1", arena, root, sample.texts(), sample.engine, units, rejectIdentifier),
            FormulaReason::NeverClosed);
  EXPECT_EQ(root.get(), before);
}

std::unique_ptr<Expression> binary(int op) {
  return arena.make<BinaryOperatorExpression>(static_cast<FormulaBinaryOperator>(op));
}

std::unique_ptr<Expression> unary() {
  return arena.make<UnaryOperatorExpression>(FormulaUnaryOperator::Negate);
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
      for (std::size_t made = 0; made < count; ++made) operands.push(arena.make<ParenExpression>());
      operators.push(isUnary ? unary() : binary(1));
      EXPECT_EQ(messageOf<std::logic_error>([&] { reduceOperators(operands, operators, 0); }),
                unexpected);
    }
  ExpressionStack empty;
  EXPECT_EQ(messageOf<Units::ParseException>([&] { pop(empty); }), "Expected an expression.");
}

}  // namespace
