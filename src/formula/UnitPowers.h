#pragma once

#include "model/ShortList.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

/// The units of a formula's value: type id of a primitive unit to its exponent, which a root may
/// make fractional. Empty means unitless.
using UnitPowerMap = std::map<std::string, double>;

/// The same while a formula is computed: each unit once, by its type id in the registry, where it
/// stays, and ordered by that one's address, which is quick to compare.
struct UnitPower {
  const std::string* typeId;
  double exponent;
};
using UnitPowers = Units::ShortList<UnitPower, 2>;

/// Brings powers of different units into order.
void orderPowers(UnitPowers& powers);

UnitPowerMap toUnitPowerMap(const UnitPowers& powers);

/// Whether values in these units may be added: the same entries, their exponents nearly equal.
bool doPowersMatch(const UnitPowers& a, const UnitPowers& b);

/// Adds the exponents of `right` to those of `left`. An exponent that cancels is taken out.
void multiplyPowers(UnitPowers& left, const UnitPowers& right);

/// Subtracts the exponents of `right` from those of `left`. An exponent that cancels is taken out.
void dividePowers(UnitPowers& left, const UnitPowers& right);

/// Multiplies every exponent by `exponent`; one that is near zero leaves no units.
/// @throws std::logic_error  an exponent comes out as zero or as no number.
void raisePowers(UnitPowers& powers, double exponent);

/// Cuts exponents to integers, toward zero. One beyond 32 bits becomes the nearest that they hold;
/// what is no number becomes 0.
std::vector<std::pair<const std::string*, int>> truncatePowers(const UnitPowers& powers);
