/// A prepared conversion: value by value, and in bulk.
#include "benchmarks/Catalog.h"
#include "benchmarks/peers/Pairs.h"
#include "benchmarks/peers/PlainLoop.h"
#include "benchmarks/peers/Turns.h"
#include "benchmarks/peers/Udunits.h"

#include <TrelvonUnits/PreparedConversion.h>

#include <cmath>
#include <cstddef>
#include <cstring>

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
    ours.emplace_back(catalog(), pair.from, pair.to);
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

/// The same array, converted from feet to yards by us and by a baseline.
struct FeetToYards {
  explicit FeetToYards(std::size_t count) : values(manyValues(count)), ours(count), theirs(count) {}

  const std::string from = unit("foot"), to = unit("yard");
  const Units::PreparedConversion conversion{catalog(), from, to};
  const std::vector<double> values;
  std::vector<double> ours, theirs;

  void convert() {
    conversion.convert(values.data(), ours.data(), values.size());
    keep(ours.data());
  }
};

/// Alternates `FeetToYards::convert` with a baseline, which writes `theirs`.
template <class Baseline>
Sides arrays(const std::shared_ptr<FeetToYards>& arrays, Baseline baseline, double tolerance) {
  const auto convert = [arrays] { return arrays->convert(), Leftover(); };
  const auto convertTheirs = [arrays, baseline] {
    baseline(*arrays);
    keep(arrays->theirs.data());
    return Leftover();
  };
  convert();
  convertTheirs();
  for (std::size_t at = 0; at < arrays->values.size(); ++at)
    check(std::abs(arrays->ours[at] - arrays->theirs[at]) <= tolerance * std::abs(arrays->ours[at]),
          "converting an array");
  const auto pieces = static_cast<double>(arrays->values.size());
  return {{convert, pieces}, {convertTheirs, pieces}};
}

template <std::size_t count>
Sides againstConverter() {
  const auto udunits = std::make_shared<Udunits>();
  const Udunits::Converter converter(*udunits, "foot", "yard");
  return arrays(
      std::make_shared<FeetToYards>(count),
      [udunits, converter](FeetToYards& feet) {
        converter.convertAll(feet.values, feet.theirs.data());
      },
      1e-15);
}

template <std::size_t count>
Sides againstPlainLoop() {
  const double foot = catalog().convert(1, unit("foot"), unit("meter"));
  const double yard = catalog().convert(1, unit("yard"), unit("meter"));
  return arrays(
      std::make_shared<FeetToYards>(count),
      [=](FeetToYards& feet) {
        plainLoop(feet.values.data(), feet.theirs.data(), count, 0, foot, yard, 0);
      },
      0);
}

/// The copy is of the results, so that both sides write the same.
template <std::size_t count>
Sides againstCopy() {
  return arrays(
      std::make_shared<FeetToYards>(count),
      [](FeetToYards& feet) {
        std::memcpy(feet.theirs.data(), feet.ours.data(), count * sizeof(double));
      },
      0);
}

Sides reciprocals() {
  constexpr std::size_t kCount = 2048;
  const Units::PreparedConversion conversion(catalog(), unit("literPer100Kilometers"),
                                             unit("milePerGallonUs"));
  const std::vector<double> values = manyValues(kCount);
  const auto ours = std::make_shared<std::vector<double>>(kCount);
  const auto theirs = std::make_shared<std::vector<double>>(kCount);
  const auto convert = [=] {
    conversion.convert(values.data(), ours->data(), kCount);
    keep(ours->data());
    return Leftover();
  };
  const auto convertEach = [=] {
    for (std::size_t at = 0; at < kCount; ++at) (*theirs)[at] = conversion(values[at]);
    keep(theirs->data());
    return Leftover();
  };
  convert();
  convertEach();
  check(*ours == *theirs, "converting reciprocals");
  return {{convert, kCount}, {convertEach, kCount}};
}

Sides making() {
  const auto pieces = static_cast<double>(mixedPairs().size());
  return {{[] {
             for (const UnitPair& pair : mixedPairs()) {
               const Units::PreparedConversion conversion(catalog(), pair.from, pair.to);
               keep(&conversion);
             }
             return Leftover();
           },
           pieces},
          {[] {
             for (const UnitPair& pair : mixedPairs())
               keep(catalog().convert(2.5, pair.from, pair.to));
             return Leftover();
           },
           pieces}};
}

}  // namespace

std::vector<Row> preparedRows() {
  const std::string inCache = "prepared conversion, 2,048 doubles";
  const std::string pastCache = "prepared conversion, 10,000,000 doubles";
  const std::string loop = "the plain loop, -O3 for x86-64-v3", udunits = "UDUNITS-2's converter";
  return {
      {"prepared conversion, single values", udunits, Bound::Faster, 2.5, 3, singleValues},
      {inCache, udunits, Bound::Faster, 1.5, 2.5, againstConverter<2048>},
      {inCache, loop, Bound::Faster, 2.5, 4, againstPlainLoop<2048>},
      {pastCache, udunits, Bound::Faster, 1.3, 1.6, againstConverter<10000000>},
      {pastCache, loop, Bound::AtMost, 1.3, 1.05, againstPlainLoop<10000000>},
      {pastCache, "copying them (`memcpy`)", Bound::AtMost, 1.25, 1.1, againstCopy<10000000>},
      {"prepared conversion, 2,048 doubles, reciprocal units", "value by value, by `pow`",
       Bound::Faster, 3, 8, reciprocals},
      {"making a prepared conversion", "`convert`", Bound::AtMost, 4, 2, making},
  };
}

}  // namespace peers
