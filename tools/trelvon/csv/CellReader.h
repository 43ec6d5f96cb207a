#pragma once

#include <TrelvonUnits/UnitsEngine.h>

#include <optional>
#include <string>

namespace tool {

/// Reads cells as the engine reads a value: a number, or a literal with a unit.
class CellReader {
 public:
  /// @param unitTypeId  what plain numbers count, and all values are counted in.
  CellReader(const Units::UnitsEngine& engine, std::string unitTypeId)
      : engine_(engine), unitTypeId_(std::move(unitTypeId)) {}

  /// @return  empty if the cell is no single value of the unit.
  std::optional<double> read(const std::string& cell) const;

  /// Why a cell is not read, for people.
  std::string reasonAgainst(const std::string& cell) const;

 private:
  bool isOneValue(const std::string& cell) const;

  const Units::UnitsEngine& engine_;
  const std::string unitTypeId_;
};

}  // namespace tool
