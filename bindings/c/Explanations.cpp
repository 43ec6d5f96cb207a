#include "bindings/c/Engine.h"
#include "bindings/c/Resolution.h"
#include "bindings/c/Writing.h"

#include <TrelvonUnits/FormulaExplanation.h>

using namespace C;
using Units::HiddenVariables;

struct trelvon_explanation {
  Units::FormulaExplanation value;
};

namespace {

/// What all explanations take.
struct Asked {
  const trelvon_engine* engine;
  trelvon_resolver resolver;
  void* context;
  HiddenVariables hidden;
};

/// Makes an explanation by a function that takes a resolver.
template <class Explain>
trelvon_status made(const Asked& asked, trelvon_explanation** explanation, trelvon_error** error,
                    const Explain& explain) {
  return guard(error, [&] {
    require(asked.engine, explanation);
    Resolution resolution(asked.resolver, asked.context, Resolution::Refusals::Explained);
    *explanation = new trelvon_explanation{explain(resolution.calls())};
  });
}

trelvon_status explained(const Asked& asked, const trelvon_text* unit, trelvon_text formula,
                         trelvon_explanation** explanation, trelvon_error** error) {
  return made(asked, explanation, error, [&](const VariableResolver& calls) {
    const Units::UnitsEngine& units = *asked.engine->units;
    return unit == nullptr
               ? explainFormula(units, stringOf(formula), calls, asked.hidden)
               : explainFormula(units, stringOf(*unit), stringOf(formula), calls, asked.hidden);
  });
}

trelvon_status explainedUnitless(const Asked& asked, trelvon_text formula,
                                 trelvon_explanation** explanation, trelvon_error** error) {
  return made(asked, explanation, error, [&](const VariableResolver& calls) {
    return explainUnitlessFormula(*asked.engine->units, stringOf(formula), calls, asked.hidden);
  });
}

}  // namespace

trelvon_status trelvon_explain(const trelvon_engine* engine, const trelvon_text* unit,
                               trelvon_text formula, trelvon_resolver resolver, void* context,
                               trelvon_explanation** explanation, trelvon_error** error) {
  return explained({engine, resolver, context, HiddenVariables::Ignore}, unit, formula, explanation,
                   error);
}

trelvon_status trelvon_explain_hidden(const trelvon_engine* engine, const trelvon_text* unit,
                                      trelvon_text formula, trelvon_resolver resolver,
                                      void* context, trelvon_explanation** explanation,
                                      trelvon_error** error) {
  return explained({engine, resolver, context, HiddenVariables::Ask}, unit, formula, explanation,
                   error);
}

trelvon_status trelvon_explain_unitless(const trelvon_engine* engine, trelvon_text formula,
                                        trelvon_resolver resolver, void* context,
                                        trelvon_explanation** explanation, trelvon_error** error) {
  return explainedUnitless({engine, resolver, context, HiddenVariables::Ignore}, formula,
                           explanation, error);
}

trelvon_status trelvon_explain_unitless_hidden(const trelvon_engine* engine, trelvon_text formula,
                                               trelvon_resolver resolver, void* context,
                                               trelvon_explanation** explanation,
                                               trelvon_error** error) {
  return explainedUnitless({engine, resolver, context, HiddenVariables::Ask}, formula, explanation,
                           error);
}

trelvon_status trelvon_explain_json(const trelvon_explanation* explanation, char* buffer,
                                    size_t* size, trelvon_error** error) {
  return written(explanation, {buffer, size}, error, &Units::FormulaExplanation::toJson);
}

trelvon_status trelvon_explain_text(const trelvon_explanation* explanation, char* buffer,
                                    size_t* size, trelvon_error** error) {
  return written(explanation, {buffer, size}, error, &Units::FormulaExplanation::toText);
}

trelvon_status trelvon_explain_tree(const trelvon_explanation* explanation, char* buffer,
                                    size_t* size, trelvon_error** error) {
  return written(explanation, {buffer, size}, error, &Units::FormulaExplanation::toTree);
}

void trelvon_explanation_free(trelvon_explanation* explanation) { delete explanation; }
