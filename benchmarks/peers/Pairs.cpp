#include "benchmarks/peers/Pairs.h"

#include "benchmarks/Catalog.h"

#include <algorithm>
#include <cstddef>

namespace peers {

namespace {

const std::vector<std::vector<NamedUnit>> kinds = {
    {{"foot", "foot"},
     {"meter", "meter"},
     {"inch", "inch"},
     {"kilometer", "kilometer"},
     {"yard", "yard"},
     {"millimeter", "millimeter"},
     {"nauticalMile", "nautical_mile"}},
    {{"hour", "hour"},
     {"second", "second"},
     {"day", "day"},
     {"minute", "minute"},
     {"millisecond", "millisecond"}},
    {{"pound", "pound"},
     {"kilogram", "kilogram"},
     {"gram", "gram"},
     {"tonne", "metric_ton"},
     {"milligram", "milligram"}},
    {{"bar", "bar"},
     {"pascal", "pascal"},
     {"atmosphere", "atm"},
     {"kilopascal", "kilopascal"},
     {"megapascal", "megapascal"},
     {"poundForcePerSquareInch", "psi"}},
    {{"kilowattHour", "kilowatt hour"},
     {"joule", "joule"},
     {"megajoule", "megajoule"},
     {"kilojoule", "kilojoule"},
     {"calorieIT", "calorie"}},
    {{"kilowatt", "kilowatt"}, {"watt", "watt"}, {"megawatt", "megawatt"}},
    {{"kilonewton", "kilonewton"}, {"newton", "newton"}, {"poundForce", "pound_force"}},
    {{"kilometerPerHour", "km/h"},
     {"meterPerSecond", "m/s"},
     {"knot", "knot"},
     {"footPerSecond", "ft/s"},
     {"inchPerMinute", "in/min"}},
    {{"squareFoot", "foot^2"},
     {"squareMeter", "m^2"},
     {"hectare", "hectare"},
     {"squareInch", "inch^2"},
     {"squareKilometer", "km^2"}},
    {{"liter", "liter"},
     {"cubicMeter", "m^3"},
     {"cubicFoot", "foot^3"},
     {"cubicInch", "inch^3"},
     {"milliliter", "milliliter"}},
    {{"degreeCelsius", "celsius"},
     {"degreeFahrenheit", "fahrenheit"},
     {"kelvinAbsolute", "kelvin"}},
    {{"degree", "degree"}, {"radian", "radian"}, {"milliradian", "milliradian"}},
    {{"poundPerCubicFoot", "lb/ft^3"},
     {"kilogramPerCubicMeter", "kg/m^3"},
     {"gramPerCubicCentimeter", "g/cm^3"}},
    {{"poundForceFoot", "lbf ft"}, {"newtonMeter", "N m"}, {"kilonewtonMeter", "kN m"}},
    {{"literPerMinute", "L/min"}, {"cubicMeterPerSecond", "m^3/s"}, {"cubicMeterPerHour", "m^3/h"}},
    {{"revolutionPerMinute", "rpm"}, {"radianPerSecond", "rad/s"}},
};

/// Pairs each unit with the next of its kind: one pair of every kind, then another of every kind.
std::vector<UnitPair> makePairs() {
  std::vector<UnitPair> pairs;
  for (std::size_t step = 0; pairs.size() < 64; ++step)
    for (const auto& kind : kinds) {
      if (step >= kind.size() || pairs.size() == 64) continue;
      const NamedUnit& from = kind[step];
      const NamedUnit& to = kind[(step + 1) % kind.size()];
      pairs.push_back({unit(from.ours), unit(to.ours), from.theirs, to.theirs});
    }
  return pairs;
}

}  // namespace

const std::vector<UnitPair>& mixedPairs() {
  static const std::vector<UnitPair> pairs = makePairs();
  return pairs;
}

}  // namespace peers
