#include "bindings/c/Engine.h"
#include "bindings/c/Guard.h"
#include "bindings/c/Resolution.h"
#include "bindings/c/Text.h"

#include <TrelvonUnits/FormulaExplanation.h>

using namespace C;

struct trelvon_explanation {
  Units::FormulaExplanation formula;
};

namespace {

/// Explains by a function of an engine and a resolver.
template <class Explain>
trelvon_status explained(const trelvon_engine* engine, trelvon_resolver resolver, void* context,
                         trelvon_explanation** explanation, trelvon_error** error,
                         const Explain& explain) {
  return guard(error, [&] {
    require(engine, explanation);
    Resolution resolution(resolver, context, Resolution::Refusals::Explained, false);
    *explanation = new trelvon_explanation{explain(*engine->units, resolution.calls())};
  });
}

using Writer = std::string (Units::FormulaExplanation::*)() const;

trelvon_status written(const trelvon_explanation* explanation, Writer writer, Buffer buffer,
                       trelvon_error** error) {
  return guard(error, [&] {
    require(explanation);
    write((explanation->formula.*writer)(), buffer);
  });
}

}  // namespace

trelvon_status trelvon_explain(const trelvon_engine* engine, const trelvon_text* unit,
                               trelvon_text formula, trelvon_resolver resolver, void* context,
                               trelvon_explanation** explanation, trelvon_error** error) {
  return explained(engine, resolver, context, explanation, error,
                   [&](const Units::UnitsEngine& units, const VariableResolver& calls) {
                     return unit == nullptr
                                ? explainFormula(units, stringOf(formula), calls)
                                : explainFormula(units, stringOf(*unit), stringOf(formula), calls);
                   });
}

trelvon_status trelvon_explain_unitless(const trelvon_engine* engine, trelvon_text formula,
                                        trelvon_resolver resolver, void* context,
                                        trelvon_explanation** explanation, trelvon_error** error) {
  return explained(engine, resolver, context, explanation, error,
                   [&](const Units::UnitsEngine& units, const VariableResolver& calls) {
                     return explainUnitlessFormula(units, stringOf(formula), calls);
                   });
}

trelvon_status trelvon_explain_json(const trelvon_explanation* explanation, char* buffer,
                                    size_t* size, trelvon_error** error) {
  return written(explanation, &Units::FormulaExplanation::toJson, {buffer, size}, error);
}

trelvon_status trelvon_explain_text(const trelvon_explanation* explanation, char* buffer,
                                    size_t* size, trelvon_error** error) {
  return written(explanation, &Units::FormulaExplanation::toText, {buffer, size}, error);
}

trelvon_status trelvon_explain_tree(const trelvon_explanation* explanation, char* buffer,
                                    size_t* size, trelvon_error** error) {
  return written(explanation, &Units::FormulaExplanation::toTree, {buffer, size}, error);
}

void trelvon_explanation_free(trelvon_explanation* explanation) { delete explanation; }
