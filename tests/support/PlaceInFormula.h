/// Where in the formula something is that an explanation tells of.
#pragma once

#include <TrelvonUnits/FormulaExplanation.h>

/// A span, with the variable of the formula instead of what replaced it.
inline Units::FormulaSpan placeInFormula(const Units::FormulaExplanation& explained) {
  const auto texts = explained.texts();
  Units::FormulaSpan span = explained.span();
  while (span.text != 0) {
    const Units::FormulaSpan replaced = texts[span.text].identifier();
    span.text = replaced.text, span.begin = replaced.begin;
  }
  while (span.endText != 0) {
    const Units::FormulaSpan replaced = texts[span.endText].identifier();
    span.endText = replaced.endText, span.end = replaced.end;
  }
  return span;
}
