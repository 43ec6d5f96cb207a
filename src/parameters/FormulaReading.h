#pragma once

#include "engine/FormulaUnits.h"
#include "engine/UnitsEngineImpl.h"
#include "parameters/Parameter.h"

#include <memory>
#include <string>
#include <string_view>

namespace Units {

/// What formulas are read with: an engine of this library, which may be a copy of a host's, and
/// units in primitive terms, to which the trees of formulas refer.
class FormulaSource {
 public:
  explicit FormulaSource(const UnitsEngine& host);

  const UnitsEngineImpl& engine() const { return *engine_; }
  FormulaUnits& units() { return units_; }

 private:
  std::unique_ptr<const UnitsEngineImpl> copy_;  // null if the host's engine is the library's
  const UnitsEngineImpl* const engine_;
  FormulaUnits units_;
};

/// Finds parameters by their names, and makes those that do not exist.
class ParameterFinder {
 public:
  /// @param name  an identifier.
  virtual Parameter& of(std::string_view name) = 0;

 protected:
  ~ParameterFinder() = default;
};

/// Reads a formula in the parentheses that it has when others refer to it. If the formula cannot be
/// read, the definition has the references up to the fault.
///
/// @throws UnrecognizedIdentifierException  `unitTypeId` is not empty and names no unit.
std::unique_ptr<Definition> readFormula(FormulaSource& source, const std::string& formula,
                                        const std::string& unitTypeId, ParameterFinder& finder);

/// Explains in a sentence why a formula cannot be read.
std::string whyNotRead(const FormulaSource& source, const Definition& definition);

}  // namespace Units
