#pragma once

#include "model/SizeAndPowers.h"
#include "naming/CodeExpression.h"

#include <TrelvonUnits/UnitsEngine.h>

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace Units {

/// The terms of all units, for expressions of codes.
class CodedUnits {
 public:
  using Powers = std::map<std::string, std::int64_t>;

  /// @param units  those of the engine, in order.
  CodedUnits(const UnitsEngine& engine, std::vector<Unit> units);

  const Unit& unit(std::size_t unit) const { return units_[unit]; }
  const SizeAndPowers& termsOf(std::size_t unit) const { return terms_[unit]; }

  /// The units with the powers and the size of some terms, in order. Sizes may differ by what the
  /// order of arithmetic changes, which is far less than any two units differ.
  std::vector<std::size_t> withTerms(const SizeAndPowers& terms) const;

 private:
  const std::vector<Unit> units_;
  std::vector<SizeAndPowers> terms_;
  std::map<Powers, std::vector<std::size_t>> byPowers_;  // none is an absolute unit
};

}  // namespace Units
