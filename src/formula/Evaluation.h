#pragma once

#include "formula/UnitMath.h"
#include "formula/UnitTerms.h"
#include "model/SymbolTexts.h"

#include <TrelvonUnits/Unit.h>
#include <TrelvonUnits/VariableResolver.h>

#include <string>
#include <string_view>

/// A formula's value in a unit. A unitless value counts as one in that unit already.
/// @throws Units::ParseException  the formula cannot be read or evaluated, or measures something
///                                else than the unit. What the resolver throws passes through.
double evaluateExpressionInUnit(const Units::Unit& unit, std::string_view formula,
                                VariableResolver resolver, const Units::SymbolTexts& symbols,
                                const Units::UnitMath& unitMath, UnitTermsSource& units);

/// The value of a formula that must be unitless.
/// @throws Units::ParseException  the formula cannot be read or evaluated, or has units. What the
///                                resolver throws passes through.
double evaluateUnitlessExpression(std::string_view formula, VariableResolver resolver,
                                  const Units::SymbolTexts& symbols,
                                  const Units::UnitMath& unitMath, UnitTermsSource& units);

/// The resolver where a host gives none: no identifier stands for anything.
/// @throws Units::ParseException  always.
std::string rejectIdentifier(const std::string& identifier);
