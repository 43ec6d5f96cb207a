#pragma once

#include "formula/UnitPowers.h"

#include <string_view>

/// The value of a variable, in primitive units if it has units.
struct VariableValue {
  double value = 0;
  UnitPowers powers;  // settled
};

/// Variables whose values are known, so that no text replaces them.
class KnownVariables {
 public:
  /// Returns the value that a name will have when the formula is evaluated; null if the resolver
  /// is to be asked instead. The value must outlive the tree.
  virtual const VariableValue* find(std::string_view name) = 0;

 protected:
  ~KnownVariables() = default;
};
