#pragma once

#include <TrelvonUnits/FormulaExplanation.h>

/// The words for the enumerations of explanations in JSON. A value that has no word yet is "other".
namespace Units {

const char* wordOf(FormulaReason reason);
const char* wordOf(FormulaExplanation::TokenKind kind);
const char* wordOf(FormulaExplanation::NodeKind kind);
const char* wordOf(FormulaExplanation::WarningKind kind);
const char* wordOf(FormulaExplanation::ExceptionClass thrown);

}  // namespace Units
