/// A prepared conversion: value by value, and in bulk.
#include "benchmarks/Catalogue.h"
#include "benchmarks/peers/Pairs.h"
#include "benchmarks/peers/PlainLoop.h"
#include "benchmarks/peers/Turns.h"
#include "benchmarks/peers/Udunits.h"

#include <TrelvonUnits/PreparedConversion.h>

#include <cmath>
#include <cstddef>

namespace peers {

namespace {

/// Values of different magnitudes and signs.
std::vector<double> manyValues(std::size_t count) {
  std::vector<double> values;
  values.reserve(count);
  for (std::size_t at = 0; at < count; ++at)
    values.push_back(static_cast<double>(at % 4099) * 0.37 - 250);
  return values;
}

Sides singleValues() {
  const auto udunits = std::make_shared<Udunits>();
  const std::vector<double> values = manyValues(64);
  std::vector<Units::PreparedConversion> ours;
  std::vector<Udunits::Converter> theirs;
  for (const UnitPair& pair : mixedPairs()) {
    ours.emplace_back(catalogue(), pair.from, pair.to);
    theirs.emplace_back(*udunits, pair.theirFrom, pair.theirTo);
    std::vector<double> converted(values.size());
    theirs.back().convertEach(values, converted.data());
    for (std::size_t at = 0; at < values.size(); ++at)
      // If an offset nearly cancels a value, fewer digits are left.
      check(
          std::abs(ours.back()(values[at]) - converted[at]) <= 1e-9 * (1 + std::abs(converted[at])),
          pair.from + " to " + pair.to);
  }
  const auto converted = std::make_shared<std::vector<double>>(values.size());
  const auto pieces = static_cast<double>(values.size() * ours.size());
  return {{[ours, values, converted] {
             for (const Units::PreparedConversion& conversion : ours) {
               double* next = converted->data();
               for (const double value : values) *next++ = conversion(value);
               keep(converted->data());
             }
             return Leftover();
           },
           pieces},
          {[udunits, theirs, values, converted] {
             for (const Udunits::Converter& converter : theirs) {
               converter.convertEach(values, converted->data());
               keep(converted->data());
             }
             return Leftover();
           },
           pieces}};
}

Sides bulk() {
  constexpr std::size_t kCount = 10000000;
  const std::string from = unit("degreeFahrenheit"), to = unit("degreeCelsius");
  const Units::PreparedConversion conversion(catalogue(), from, to);
  const auto values = std::make_shared<const std::vector<double>>(manyValues(kCount));
  const auto ours = std::make_shared<std::vector<double>>(kCount);
  const auto theirs = std::make_shared<std::vector<double>>(kCount);

  const double fahrenheit = catalogue().getUnit(from).getAbsoluteUnitComponent()->getOffset();
  const double celsius = catalogue().getUnit(to).getAbsoluteUnitComponent()->getOffset();
  const double rankine = catalogue().convert(1, unit("fahrenheitDifference"), unit("kelvin"));
  const auto loop = [=] {
    plainLoop(values->data(), theirs->data(), kCount, fahrenheit, rankine, 1, celsius);
    keep(theirs->data());
    return Leftover();
  };
  const auto convert = [=] {
    conversion.convert(values->data(), ours->data(), kCount);
    keep(ours->data());
    return Leftover();
  };
  loop();
  convert();
  check(*ours == *theirs, "converting ten million values");
  return {{convert, kCount}, {loop, kCount}};
}

}  // namespace

std::vector<Row> preparedRows() {
  return {
      {"prepared conversion, single values", "UDUNITS-2's converter", Bound::Faster, 2, 3,
       singleValues},
      {"prepared conversion, 10,000,000 doubles", "the plain loop, -O3 for x86-64-v3",
       Bound::AtMost, 1.3, 1.05, bulk},
  };
}

}  // namespace peers
