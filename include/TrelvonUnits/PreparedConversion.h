#pragma once

#include <TrelvonUnits/Export.h>
#include <TrelvonUnits/UnitsEngine.h>

#include <cstddef>
#include <string>

namespace Units {

/// A conversion between two units that is worked out once and then applied to many numbers.
///
/// It gives what `UnitsEngine::convert` gave when it was made, to the bit for every double (what is
/// not a number stays one). It never changes, keeps nothing of the engine, allocates nothing when
/// it is applied, and may be applied on many threads at once.
///
///   const Units::PreparedConversion toMeters(*engine, foot, meter);
///   toMeters(6.0);                           // 1.8288
///   toMeters.convert(feet, meters, count);   // a whole array
class TRELVONUNITS_API PreparedConversion {
 public:
  /// @param engine          any engine; only its public operations are used.
  /// @param fromUnitTypeId  type id of a stored unit; looked up first.
  /// @param toUnitTypeId    type id of a stored unit.
  /// @throws UnrecognizedIdentifierException  as `convert`: an id names no unit.
  /// @throws IncompatibleUnitsException       as `convert`: different dimensions, or one with an
  ///                                          offset and one without.
  /// @throws std::logic_error                 the engine, a host's own, tells of a unit or factor
  ///                                          whose parents lead back to it.
  PreparedConversion(const UnitsEngine& engine, const std::string& fromUnitTypeId,
                     const std::string& toUnitTypeId);

  /// @param value  counted in the first unit; any double. A reciprocal of 0 is infinite.
  /// @return  counted in the second unit.
  double operator()(double value) const {
    const double primitive = (fromOffset_ + value) * fromFactor_;
    return (inverted_ ? reciprocalOf(primitive) : primitive) / toFactor_ - toOffset_;
  }

  /// Converts an array.
  ///
  /// @param values     `count` numbers, counted in the first unit.
  /// @param converted  room for as many, counted in the second unit: `values` itself, or an array
  ///                   that does not overlap it.
  void convert(const double* values, double* converted, std::size_t count) const;

 private:
  /// pow(value, -1.0), to the bit, which is not always 1 / value.
  static double reciprocalOf(double value);

  double fromOffset_;
  double fromFactor_;
  double toFactor_;
  double toOffset_;
  bool inverted_;
};

}  // namespace Units
