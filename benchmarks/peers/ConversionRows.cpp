/// `convert` with two ids: against UDUNITS-2, against the minimum that any conversion needs, with
/// many stored units, and with deep definitions.
#include "benchmarks/Catalog.h"
#include "benchmarks/peers/BareConversion.h"
#include "benchmarks/peers/Pairs.h"
#include "benchmarks/peers/Turns.h"
#include "benchmarks/peers/Udunits.h"

#include <cstddef>
#include <utility>

namespace peers {

namespace {

Side ourPairs() {
  return {[] {
            for (const UnitPair& pair : mixedPairs())
              keep(catalog().convert(2.5, pair.from, pair.to));
            return Leftover();
          },
          static_cast<double>(mixedPairs().size())};
}

Sides againstUdunits() {
  const auto udunits = std::make_shared<Udunits>();
  for (const UnitPair& pair : mixedPairs())
    checkNear(catalog().convert(2.5, pair.from, pair.to),
              udunits->convert(2.5, pair.theirFrom, pair.theirTo), 1e-9, pair.from + pair.to);
  return {ourPairs(),
          {[udunits] {
             for (const UnitPair& pair : mixedPairs())
               keep(udunits->convert(2.5, pair.theirFrom, pair.theirTo));
             return Leftover();
           },
           static_cast<double>(mixedPairs().size())}};
}

template <class Id>
Sides againstLookups(double (*lookUp)(double, Id, Id)) {
  for (const UnitPair& pair : mixedPairs())
    checkNear(catalog().convert(2.5, pair.from, pair.to), lookUp(2.5, pair.from, pair.to), 1e-9,
              pair.from + pair.to);
  return {ourPairs(),
          {[lookUp] {
             for (const UnitPair& pair : mixedPairs()) keep(lookUp(2.5, pair.from, pair.to));
             return Leftover();
           },
           static_cast<double>(mixedPairs().size())}};
}

std::string numbered(std::size_t number) {
  return "company.unit:ours" + std::to_string(number) + "-1.0.0";
}

/// 64 conversions in an engine with `count` units, which are defined in chains of four.
Side amongUnits(std::size_t count) {
  const std::shared_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  for (std::size_t number = 0; number < count; ++number) {
    if (number == 0)
      engine->addUnit(
          {numbered(0), "ours", Units::System::Metric, Units::PrimitiveUnitComponent()});
    else
      engine->addUnit(
          {numbered(number), "ours", Units::System::Metric,
           Units::DerivedUnitComponent({{numbered(number % 4 == 0 ? 0 : number - 1), 1}},
                                       Units::FactorComponent(number % 2 == 0 ? 2.0 : 0.5))});
  }
  std::vector<std::pair<std::string, std::string>> pairs;
  std::size_t at = 0;
  const auto next = [&] { return numbered(at = (at * 48271 + 11) % 2147483647 % count); };
  for (int pair = 0; pair < 64; ++pair) {
    std::string from = next();
    pairs.emplace_back(std::move(from), next());
  }
  return {[engine, pairs] {
            for (const auto& [from, to] : pairs) keep(engine->convert(2.5, from, to));
            return Leftover();
          },
          64};
}

/// Layers of two units, each derived from both units of the layer below.
Side diamond(int layers) {
  const std::shared_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  const auto name = [](int layer, char side) {
    return "company.unit:layer" + std::to_string(layer) + side;
  };
  for (const char side : {'a', 'b'})
    engine->addUnit(
        {name(0, side), "bottom", Units::System::Metric, Units::PrimitiveUnitComponent()});
  for (int layer = 1; layer <= layers; ++layer)
    for (const char side : {'a', 'b'})
      engine->addUnit({name(layer, side), "layer", Units::System::Metric,
                       Units::DerivedUnitComponent(
                           {{name(layer - 1, 'a'), 1}, {name(layer - 1, 'b'), 1}},
                           Units::FactorComponent(layer == layers && side == 'b' ? 2.0 : 1.0))});
  const std::string from = name(layers, 'b'), to = name(layers, 'a');
  check(engine->convert(2.5, from, to) == 5.0, "the diamond of layers");
  return {[engine, from, to] {
            for (int time = 0; time < 16; ++time) keep(engine->convert(2.5, from, to));
            return Leftover();
          },
          16};
}

}  // namespace

std::vector<Row> conversionRows() {
  return {
      {"`convert`, 64 mixed pairs of ids", "UDUNITS-2, text to number", Bound::Faster, 10, 13,
       againstUdunits},
      {"`convert`, 64 mixed pairs of ids", "two bare map lookups and the arithmetic", Bound::AtMost,
       2.5, 1.8, [] { return againstLookups(bareConvert); }},
      {"`convert`, 64 mixed pairs of ids", "the same without copies of the ids", Bound::AtMost, 2.2,
       1.8, [] { return againstLookups(bareConvertByReference); }},
      {"`convert`, 100,000 stored units", "100 stored units", Bound::AtMost, 3.5, 2.5,
       [] {
         return Sides{amongUnits(100000), amongUnits(100)};
       }},
      {"`convert`, diamond of 20 layers", "8 layers", Bound::AtMost, 3, 2.6,
       [] {
         return Sides{diamond(20), diamond(8)};
       }},
  };
}

}  // namespace peers
