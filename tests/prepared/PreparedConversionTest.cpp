#include "tests/support/Messages.h"

#include <TrelvonUnits/TrelvonUnits.h>
#include <gtest/gtest.h>

#include <cmath>
#include <cstring>
#include <limits>
#include <memory>
#include <random>
#include <vector>

namespace Units {
namespace {

std::unique_ptr<UnitsEngine> filledEngine() {
  std::unique_ptr<UnitsEngine> engine(CreateUnitsEngine());
  const auto add = [&](const char* typeId, const auto& component) {
    engine->addUnit(Unit(typeId, "name", System::Metric, component));
  };
  engine->addFactor(Factor("third", FactorComponent(1.0 / 3.0)));
  engine->addFactor(Factor("ninth", FactorComponent(1.1, {{"third", 2}})));
  add("m", PrimitiveUnitComponent());
  add("s", PrimitiveUnitComponent());
  add("ft", DerivedUnitComponent({{"m", 1}}, FactorComponent(0.3048)));
  add("h", DerivedUnitComponent({{"s", 1}}, FactorComponent(3600.0, {{"ninth", -3}})));
  add("ft/h", DerivedUnitComponent({{"ft", 1}, {"h", -1}}, FactorComponent(-7.3)));
  add("h/m", DerivedUnitComponent({{"h", 1}, {"m", -1}}, FactorComponent(1e300)));
  add("cold", AbsoluteUnitComponent("ft", 273.15));
  add("hot", AbsoluteUnitComponent("m", -459.67));
  add("none", DerivedUnitComponent({{"m", 1}, {"ft", -1}}, FactorComponent()));
  return engine;
}

std::vector<double> values() {
  using Limits = std::numeric_limits<double>;
  std::vector<double> all = {0.0,
                             -0.0,
                             1.0,
                             Limits::max(),
                             Limits::min(),
                             Limits::denorm_min(),
                             -459.67,
                             Limits::infinity(),
                             -Limits::infinity()};
  std::mt19937_64 random(1);
  while (all.size() < 2000) {
    const auto bits = random();
    double value;
    std::memcpy(&value, &bits, sizeof value);
    if (!std::isnan(value)) all.push_back(value);
  }
  return all;
}

void expectSameBits(double a, double b, const std::string& what) {
  if (std::isnan(a) && std::isnan(b)) return;
  EXPECT_EQ(std::memcmp(&a, &b, sizeof a), 0) << what << ": " << a << " and " << b;
}

TEST(PreparedConversion, GivesWhatConvertGives) {
  const auto engine = filledEngine();
  const std::vector<double> all = values();
  for (const auto& [from, to] : {std::pair("m", "ft"),
                                 {"ft", "m"},
                                 {"h", "s"},
                                 {"ft/h", "ft/h"},
                                 {"ft/h", "h/m"},
                                 {"h/m", "ft/h"},
                                 {"cold", "hot"},
                                 {"hot", "cold"},
                                 {"none", "none"},
                                 {"m", "m"}}) {
    const std::string what = std::string(from) + " to " + to;
    const PreparedConversion prepared(*engine, from, to);
    constexpr double behind = 7.5;  // stands behind what is converted, and stays
    std::vector<double> converted(all.size() + 1, behind);
    std::vector<double> inPlace = all;
    inPlace.push_back(behind);
    prepared.convert(all.data(), converted.data(), all.size());
    prepared.convert(inPlace.data(), inPlace.data(), all.size());
    EXPECT_EQ(converted.back(), behind);
    EXPECT_EQ(inPlace.back(), behind);
    for (std::size_t i = 0; i < all.size(); ++i) {
      const double expected = engine->convert(all[i], from, to);
      expectSameBits(prepared(all[i]), expected, what);
      expectSameBits(converted[i], expected, what + " in an array");
      expectSameBits(inPlace[i], expected, what + " in place");
    }
  }
}

TEST(PreparedConversion, RefusesWhatConvertRefuses) {
  const auto engine = filledEngine();
  const auto prepare = [&](const char* from, const char* to) {
    return [&engine, from, to] { PreparedConversion(*engine, from, to); };
  };
  using E = UnrecognizedIdentifierException;
  EXPECT_EQ(messageOf<E>(prepare("x", "y")), "Could not find unit with typeid x.");
  EXPECT_EQ(messageOf<IncompatibleUnitsException>(prepare("m", "hot")),
            "Cannot convert between units m and hot.");
}

}  // namespace
}  // namespace Units
