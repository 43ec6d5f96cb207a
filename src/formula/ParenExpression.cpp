#include "formula/ParenExpression.h"

FormulaReason ParenExpression::apply(EvaluatedValues&) const { return FormulaReason::Done; }
