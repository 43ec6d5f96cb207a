#include "bindings/c/Engine.h"
#include "bindings/c/Fault.h"
#include "bindings/c/Guard.h"
#include "bindings/c/Resolution.h"
#include "bindings/c/Text.h"

#include <TrelvonUnits/FormulaOutcome.h>

#include <optional>

using namespace C;

namespace {

trelvon_status statusOf(const Units::FormulaOutcome& refusal) {
  using Thrown = Units::FormulaExplanation::ExceptionClass;
  if (refusal.exceptionClass == Thrown::ParseException) return TRELVON_PARSE;
  return refusal.exceptionClass == Thrown::IncompatibleUnitsException ? TRELVON_INCOMPATIBLE
                                                                      : TRELVON_OTHER;
}

/// A resolver's fault, if it has one, at the place where it was asked.
[[noreturn]] void throwRefusal(const Units::FormulaOutcome& refusal,
                               const std::optional<Fault>& ofResolver) {
  Fault fault = ofResolver ? *ofResolver : Fault(statusOf(refusal), refusal.message);
  fault.span = Span{refusal.span.begin, refusal.span.end};
  throw fault;
}

trelvon_status evaluateForC(const trelvon_engine* engine, const std::optional<trelvon_text>& unit,
                            trelvon_text text, trelvon_resolver resolver, void* context,
                            double* result, trelvon_error** error) {
  return guard(error, [&] {
    require(engine, result);
    const std::string formula = stringOf(text);
    Resolution resolution(resolver, context, Resolution::Refusals::Placed);
    const auto outcome =
        unit ? tryFormula(*engine->units, stringOf(*unit), formula, resolution.calls())
             : tryUnitlessFormula(*engine->units, formula, resolution.calls());
    if (outcome.reason != Units::FormulaReason::Done) throwRefusal(outcome, resolution.fault());
    *result = outcome.value;
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
