#pragma once

#include "formula/UnitMath.h"
#include "formula/UnitTerms.h"
#include "model/SymbolTexts.h"

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

/// The default resolver, which rejects every identifier.
/// @throws Units::ParseException  always.
std::string rejectIdentifier(const std::string& identifier);
