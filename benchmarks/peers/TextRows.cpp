/// Formatting against `snprintf` of only the number, and a query against copying its result.
#include "benchmarks/Catalog.h"
#include "benchmarks/peers/Turns.h"

#include <array>
#include <cstdio>
#include <functional>
#include <map>
#include <string>
#include <thread>
#include <vector>

namespace peers {

namespace {

constexpr std::array<double, 16> values = {0.5,   1.25,   2.0,    3.14159, 12.5,     99.995,
                                           120.1, 1000.0, 1234.5, 0.0625,  65536.75, 7.3,
                                           -5.5,  -0.125, 42.42,  360.0};

std::string symbol(const std::string& name) { return "trelvon.symbol:" + name + "-1.0.0"; }

Side printed() {
  return {[] {
            char text[64];
            for (const double value : values) {
              std::snprintf(text, sizeof text, "%.2f", value);
              keep(text);
            }
            return Leftover();
          },
          values.size()};
}

Sides fixedPoint() {
  const std::string kilogram = symbol("kilogram");
  check(catalog().formatFixedPoint(12.5, 2, &kilogram, false) == "12.50 kg", "12.50 kg");
  return {{[kilogram] {
             for (const double value : values)
               keep(catalog().formatFixedPoint(value, 2, &kilogram, false).data());
             return Leftover();
           },
           values.size()},
          printed()};
}

Sides fractional() {
  const std::string feetAndInches = symbol("feetAndInches");
  check(catalog().formatFractional(5.53125, 4, &feetAndInches) == "5' 6 3/8\"", "5' 6 3/8\"");
  return {{[feetAndInches] {
             for (const double value : values)
               keep(catalog().formatFractional(value, 4, &feetAndInches).data());
             return Leftover();
           },
           values.size()},
          printed()};
}

using Records = std::map<std::string, Units::Unit>;

Records convertibleToBar() {
  Records listed = catalog().getConvertibleUnits(unit("bar"));
  check(listed.size() > 30 && listed.count(unit("pascal")) == 1, "the units convertible to a bar");
  return listed;
}

Side query() {
  return {[] {
    keep(&static_cast<const Records&>(catalog().getConvertibleUnits(unit("bar"))));
    return Leftover();
  }};
}

Sides besideCopy() {
  return {query(), {[listed = convertibleToBar()] {
            keep(&static_cast<const Records&>(Records(listed)));
            return Leftover();
          }}};
}

/// Contents of derived units, which all but one of those that convert to a bar are.
struct Contents {
  std::string typeId, name;
  std::map<std::string, int> parents, factors;
};

Sides besideFreshRecords() {
  std::vector<Contents> all;
  for (const auto& [typeId, unit] : convertibleToBar()) {
    const auto derived = unit.getDerivedUnitComponent();
    check(derived.has_value(), typeId);
    all.push_back({typeId, unit.getName(), derived->getParentUnitPowers(),
                   derived->getFactorComponent().getParentFactorPowers()});
  }
  return {query(), {[all] {
            Records made;
            for (const auto& [typeId, name, parents, factors] : all)
              made.emplace_hint(made.end(), typeId,
                                Units::Unit(typeId, name, Units::System::Metric,
                                            Units::DerivedUnitComponent(
                                                parents, Units::FactorComponent(2.0, factors))));
            keep(&static_cast<const Records&>(made));
            return Leftover();
          }}};
}

/// Copies of one record, on as many threads at once.
Side copies(std::size_t threads) {
  constexpr std::size_t times = 100000;
  const auto work = [unit = catalog().getUnit(unit("bar"))] {
    for (std::size_t time = 0; time < times; ++time) {
      const Units::Unit copy(unit);
      keep(&copy);
    }
  };
  return {[work, threads] {
            std::vector<std::thread> others;
            for (std::size_t other = 1; other < threads; ++other)
              others.emplace_back(std::cref(work));
            work();
            for (std::thread& other : others) other.join();
            return Leftover();
          },
          static_cast<double>(threads * times)};
}

}  // namespace

std::vector<Row> textRows() {
  return {
      {"`formatFixedPoint` with a symbol", "`snprintf` of only the number", Bound::AtMost, 1.2, 0.7,
       fixedPoint},
      {"`formatFractional` in feet and inches", "`snprintf` of only the number", Bound::AtMost, 1.6,
       1.0, fractional},
      {"`getConvertibleUnits`", "copying the result", Bound::AtMost, 40, 25, besideCopy},
      {"`getConvertibleUnits`", "making the result of new records", Bound::AtMost, 10, 4,
       besideFreshRecords},
      {"copying a record on two threads, per copy", "on one thread", Bound::AtMost, 20, 5,
       [] {
         return Sides{copies(2), copies(1)};
       }},
  };
}

}  // namespace peers
