#pragma once

#include <TrelvonUnits/Export.h>
#include <TrelvonUnits/UnitsEngine.h>

#include <cstddef>
#include <string>

namespace Units {

/// A conversion between two units that is worked out once and then applied to many numbers.
///
/// - The results are those of `UnitsEngine::convert` at the time of construction, to the bit for
///   every double. (NaN stays NaN, but its bits may differ.)
/// - It never changes and holds no reference to the engine, which may be destroyed first.
/// - Applying it allocates nothing, never throws, and may happen on many threads at once.
/// - Construction costs about as much as a single `convert`. With a host-implemented engine it costs
///   hundreds of times as much.
/// - Arrays of a hundred numbers or more are converted faster than one by one.
///
///   const Units::PreparedConversion toMeters(*engine, foot, meter);
///   toMeters(6.0);                           // 1.8288
///   toMeters.convert(feet, meters, count);   // a whole array
class TRELVONUNITS_API PreparedConversion {
 public:
  /// Works the conversion out.
  ///
  /// @param engine          any engine; it is asked only here. Of a host-implemented one, only public
  ///                        const operations are called.
  /// @param fromUnitTypeId  type id of a stored unit; looked up first.
  /// @param toUnitTypeId    type id of a stored unit.
  /// @throws UnrecognizedIdentifierException  as for `convert`: an id names no unit.
  /// @throws IncompatibleUnitsException       as for `convert`: the dimensions differ, or exactly
  ///                                          one of the units is absolute.
  /// @throws std::logic_error                 a host-implemented engine returns a unit or factor
  ///                                          that is its own ancestor.
  PreparedConversion(const UnitsEngine& engine, const std::string& fromUnitTypeId,
                     const std::string& toUnitTypeId);

  /// Converts one number.
  ///
  /// @param value  counted in the first unit; any double. The reciprocal of 0 is an infinity, and
  ///               NaN stays NaN.
  /// @return  counted in the second unit.
  double operator()(double value) const {
    const double primitive = (fromOffset_ + value) * fromFactor_;
    const double scaled = inverted_ ? reciprocalOf(primitive) : primitive;
    if (toFactor_ == 1.0) return scaled - toOffset_;  // without a division, and the same
    return scaled / toFactor_ - toOffset_;
  }

  /// Converts an array. The results are the same as for the numbers one by one.
  ///
  /// @param values     `count` numbers, counted in the first unit.
  /// @param converted  receives `count` numbers, counted in the second unit. It is either `values`
  ///                   itself, to convert in place, or an array that does not overlap it.
  /// @param count      may be 0; then neither array is accessed.
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
