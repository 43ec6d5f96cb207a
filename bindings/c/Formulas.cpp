#include "bindings/c/Engine.h"
#include "bindings/c/Fault.h"
#include "bindings/c/Guard.h"
#include "bindings/c/Resolution.h"
#include "bindings/c/Text.h"

#include <TrelvonUnits/Exceptions.h>
#include <TrelvonUnits/FormulaExplanation.h>

#include <optional>

using namespace C;

namespace {

struct Formula {
  std::optional<std::string> unit;  // none for a plain number
  std::string text;
};

double evaluate(const Units::UnitsEngine& engine, const Formula& formula,
                const VariableResolver& resolver) {
  const auto& [unit, text] = formula;
  if (unit && resolver) return engine.evaluateExpressionInUnit(*unit, text, resolver);
  if (unit) return engine.evaluateExpressionInUnit(*unit, text);
  if (resolver) return engine.evaluateUnitlessExpression(text, resolver);
  return engine.evaluateUnitlessExpression(text);
}

Units::FormulaExplanation explain(const Units::UnitsEngine& engine, const Formula& formula,
                                  const VariableResolver& resolver) {
  return formula.unit ? explainFormula(engine, *formula.unit, formula.text, resolver)
                      : explainUnitlessFormula(engine, formula.text, resolver);
}

/// The part that was refused. If it is in a replacement, the variable in the formula that was
/// replaced.
Span refusedSpan(const Units::FormulaExplanation& explanation) {
  Units::FormulaSpan span = explanation.span();
  const auto texts = explanation.texts();
  const bool isWithin = span.endText == span.text;
  while (span.text != 0) span = texts[span.text].identifier();
  return {span.begin, isWithin ? span.end : explanation.formula().size()};
}

/// The fault that is being handled, with the place in the formula.
Fault placedFault(const Units::UnitsEngine& engine, const Formula& formula,
                  const Resolution& resolution) {
  Fault fault = currentFault(TRELVON_OTHER);
  fault.span = refusedSpan(explain(engine, formula, resolution.replay()));
  return fault;
}

trelvon_status evaluateForC(const trelvon_engine* engine, const std::optional<trelvon_text>& unit,
                            trelvon_text text, trelvon_resolver resolver, void* context,
                            double* result, trelvon_error** error) {
  return guard(error, [&] {
    require(engine, result);
    Formula formula{std::nullopt, stringOf(text)};
    if (unit) formula.unit = stringOf(*unit);
    Resolution resolution(resolver, context, Resolution::Refusals::Faults, error != nullptr);
    try {
      *result = evaluate(*engine->units, formula, resolution.calls());
    } catch (const Units::UnrecognizedIdentifierException&) {
      throw;  // of the unit, before the formula is read
    } catch (...) {
      if (error == nullptr) throw;
      throw placedFault(*engine->units, formula, resolution);
    }
  });
}

}  // namespace

trelvon_status trelvon_evaluate(const trelvon_engine* engine, trelvon_text unit,
                                trelvon_text formula, trelvon_resolver resolver, void* context,
                                double* result, trelvon_error** error) {
  return evaluateForC(engine, unit, formula, resolver, context, result, error);
}

trelvon_status trelvon_evaluate_unitless(const trelvon_engine* engine, trelvon_text formula,
                                         trelvon_resolver resolver, void* context, double* result,
                                         trelvon_error** error) {
  return evaluateForC(engine, std::nullopt, formula, resolver, context, result, error);
}
