#include "reporting/ExplanationWords.h"

#include <cstddef>

namespace Units {

namespace {

constexpr const char* reasons[] = {"done",
                                   "missing-operand",
                                   "not-after-operand",
                                   "never-closed",
                                   "never-opened",
                                   "empty-parentheses",
                                   "missing-parentheses",
                                   "suffix-without-operand",
                                   "unusable-symbol",
                                   "unknown-identifier",
                                   "variable-is-itself",
                                   "nested-too-deeply",
                                   "too-many-variables",
                                   "units-differ",
                                   "divisor-near-zero",
                                   "undefined-power",
                                   "exponent-has-units",
                                   "power-of-no-units",
                                   "outside-domain",
                                   "out-of-range",
                                   "input-has-units",
                                   "input-not-expected",
                                   "input-missing",
                                   "symbol-after-units",
                                   "units-do-not-fit",
                                   "has-units",
                                   "other"};

constexpr const char* tokenKinds[] = {
    "other",       "operator",         "function",          "number",
    "unit-symbol", "open-parenthesis", "close-parenthesis", "variable"};

constexpr const char* nodeKinds[] = {"other",  "number",      "operator", "function",
                                     "symbol", "parentheses", "variable"};

constexpr const char* warningKinds[] = {"other",
                                        "hyphen-is-separator",
                                        "numbers-joined",
                                        "power-of-literal",
                                        "no-composite-symbol",
                                        "scales-added",
                                        "scale-multiplied",
                                        "variable-hidden",
                                        "plain-number",
                                        "reciprocal-converted",
                                        "quotient-is-reciprocal",
                                        "logarithm-to-base-ten",
                                        "rounds-in-base-units",
                                        "mark-means-feet"};

constexpr const char* exceptionClasses[] = {"none", "ParseException", "IncompatibleUnitsException",
                                            "std::logic_error"};

/// The word for a value.
template <class E, std::size_t count>
const char* wordAt(E value, const char* const (&words)[count]) {
  const auto place = static_cast<std::size_t>(value);
  return place < count ? words[place] : "other";
}

}  // namespace

const char* wordOf(FormulaReason reason) { return wordAt(reason, reasons); }
const char* wordOf(FormulaExplanation::TokenKind kind) { return wordAt(kind, tokenKinds); }
const char* wordOf(FormulaExplanation::NodeKind kind) { return wordAt(kind, nodeKinds); }
const char* wordOf(FormulaExplanation::WarningKind kind) { return wordAt(kind, warningKinds); }
const char* wordOf(FormulaExplanation::ExceptionClass thrown) {
  return wordAt(thrown, exceptionClasses);
}

}  // namespace Units
