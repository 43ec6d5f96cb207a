#include "formula/SpellingTables.h"

void BinaryOperatorMap::populate() const { addBytes(binaryOperators); }

void UnaryOperatorMap::populate() const { addBytes(unaryOperators); }

void FunctionMap::populate() const {
  add("sin", FormulaFunction::Sin);
  add("cos", FormulaFunction::Cos);
  add("tan", FormulaFunction::Tan);
  add("asin", FormulaFunction::Asin);
  add("acos", FormulaFunction::Acos);
  add("atan", FormulaFunction::Atan);
  add("exp", FormulaFunction::Exp);
  add("log", FormulaFunction::Log);
  add("sqrt", FormulaFunction::Sqrt);
  add("abs", FormulaFunction::Abs);
  add("pi", FormulaFunction::Pi);
  add("round", FormulaFunction::Round);
  add("roundup", FormulaFunction::RoundUp);
  add("rounddown", FormulaFunction::RoundDown);
  add("ln", FormulaFunction::Ln);
}
