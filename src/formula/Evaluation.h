#pragma once

#include "formula/EvaluatedValue.h"
#include "formula/UnitMath.h"
#include "formula/UnitTerms.h"
#include "model/SymbolTexts.h"

#include <TrelvonUnits/FormulaReason.h>
#include <TrelvonUnits/Unit.h>
#include <TrelvonUnits/VariableResolver.h>

#include <string>
#include <string_view>

/// Returns a formula's value in a unit. A unitless value is taken to be in that unit already.
/// @throws Units::ParseException  the formula cannot be parsed or evaluated, or its units are not
///                                compatible with the unit. Exceptions of the resolver propagate.
double evaluateExpressionInUnit(const Units::Unit& unit, std::string_view formula,
                                VariableResolver resolver, const Units::SymbolTexts& symbols,
                                const Units::UnitMath& unitMath, UnitTermsSource& units);

/// Returns the value of a formula that must be unitless.
/// @throws Units::ParseException  the formula cannot be parsed or evaluated, or has units.
///                                Exceptions of the resolver propagate.
double evaluateUnitlessExpression(std::string_view formula, VariableResolver resolver,
                                  const Units::SymbolTexts& symbols,
                                  const Units::UnitMath& unitMath, UnitTermsSource& units);

/// Replaces a formula's value, in primitive units, by the value in a unit. A unitless value is taken
/// to be in that unit already.
///
/// @param inverted  set if the unit has the reciprocal dimension.
Units::FormulaReason countInUnit(EvaluatedValue& result, const Units::Unit& unit,
                                 UnitTermsSource& units, bool& inverted);

/// The default resolver, which rejects every identifier.
/// @throws Units::ParseException  always.
std::string rejectIdentifier(const std::string& identifier);
