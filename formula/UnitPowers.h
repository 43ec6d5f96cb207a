#pragma once

#include <TrelvonUnits/PrimitivePowers.h>

#include <map>
#include <string>

/// The units of a formula's value: type id of a primitive unit to its exponent, which a root may
/// make fractional. Empty means unitless.
using UnitPowerMap = std::map<std::string, double>;

/// Whether values in these units may be added: the same entries, their exponents nearly equal.
bool doPowersMatch(const UnitPowerMap& a, const UnitPowerMap& b);

/// Adds the exponents of `right` to those of `left`. An exponent that cancels is taken out.
void multiplyPowers(UnitPowerMap& left, const UnitPowerMap& right);

/// Subtracts the exponents of `right` from those of `left`. An exponent that cancels is taken out.
void dividePowers(UnitPowerMap& left, const UnitPowerMap& right);

/// Multiplies every exponent by `exponent`; one that is near zero leaves no units.
/// @throws std::logic_error  an exponent comes out as zero or as no number.
void raisePowers(UnitPowerMap& powers, double exponent);

/// Cuts exponents to integers, toward zero. One beyond 32 bits becomes the nearest that they hold;
/// what is no number becomes 0.
Units::PrimitivePowers truncatePowers(const UnitPowerMap& powers);
