#pragma once

#include "engine/FormulaUnits.h"
#include "engine/UnitsEngineImpl.h"
#include "parameters/Parameter.h"

#include <memory>
#include <string>
#include <string_view>

namespace Units {

/// What formulas are read with: the library's own engine, which is a copy of a host's, and units in
/// primitive terms, to which the trees of formulas refer.
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

/// Finds parameters by their names, and makes those that are not there.
class ParameterFinder {
 public:
  /// @param name  an identifier.
  virtual Parameter& of(std::string_view name) = 0;

 protected:
  ~ParameterFinder() = default;
};

/// Reads a formula in the parentheses in which others read it. A definition whose formula cannot be
/// read has the references up to there.
///
/// @throws UnrecognizedIdentifierException  `unitTypeId` is not empty and names no unit.
std::unique_ptr<Definition> readFormula(FormulaSource& source, const std::string& formula,
                                        const std::string& unitTypeId, ParameterFinder& finder);

/// Says for people why a formula cannot be read.
std::string whyNotRead(const FormulaSource& source, const Definition& definition);

}  // namespace Units
