/// Formatting against `snprintf` of only the number, and a query against copying its result.
#include "benchmarks/Catalogue.h"
#include "benchmarks/peers/Turns.h"

#include <array>
#include <cstdio>
#include <map>

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
  check(catalogue().formatFixedPoint(12.5, 2, &kilogram, false) == "12.50 kg", "12.50 kg");
  return {{[kilogram] {
             for (const double value : values)
               keep(catalogue().formatFixedPoint(value, 2, &kilogram, false).data());
             return Leftover();
           },
           values.size()},
          printed()};
}

Sides fractional() {
  const std::string feetAndInches = symbol("feetAndInches");
  check(catalogue().formatFractional(5.53125, 4, &feetAndInches) == "5' 6 3/8\"", "5' 6 3/8\"");
  return {{[feetAndInches] {
             for (const double value : values)
               keep(catalogue().formatFractional(value, 4, &feetAndInches).data());
             return Leftover();
           },
           values.size()},
          printed()};
}

Sides convertible() {
  using Records = std::map<std::string, Units::Unit>;
  const Records listed = catalogue().getConvertibleUnits(unit("bar"));
  check(listed.size() > 30 && listed.count(unit("pascal")) == 1, "the units convertible to a bar");
  return {{[] {
            keep(&static_cast<const Records&>(catalogue().getConvertibleUnits(unit("bar"))));
            return Leftover();
          }},
          {[listed] {
            keep(&static_cast<const Records&>(Records(listed)));
            return Leftover();
          }}};
}

}  // namespace

std::vector<Row> textRows() {
  return {
      {"`formatFixedPoint` with a symbol", "`snprintf` of only the number", Bound::AtMost, 1.2, 0.7,
       fixedPoint},
      {"`formatFractional` in feet and inches", "`snprintf` of only the number", Bound::AtMost, 1.6,
       1.0, fractional},
      {"`getConvertibleUnits`", "copying the same result", Bound::AtMost, 10, 4, convertible},
  };
}

}  // namespace peers
