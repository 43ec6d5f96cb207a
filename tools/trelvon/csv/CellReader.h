#pragma once

#include <TrelvonUnits/UnitsEngine.h>

#include <optional>
#include <string>

namespace tool {

/// Reads cells as the engine reads a value: a number, or a literal with a unit.
class CellReader {
 public:
  /// @param unitTypeId  the unit of plain numbers, and of the results.
  CellReader(const Units::UnitsEngine& engine, std::string unitTypeId)
      : engine_(engine), unitTypeId_(std::move(unitTypeId)) {}

  /// @return  empty if the cell is not a single value that fits the unit.
  std::optional<double> read(const std::string& cell) const;

  /// A sentence that tells why a cell cannot be read.
  std::string reasonAgainst(const std::string& cell) const;

 private:
  bool isOneValue(const std::string& cell) const;

  const Units::UnitsEngine& engine_;
  const std::string unitTypeId_;
};

}  // namespace tool
