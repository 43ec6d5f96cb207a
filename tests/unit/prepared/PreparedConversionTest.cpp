#include "tests/support/Bits.h"
#include "tests/support/HostEngine.h"
#include "tests/support/Random.h"
#include "tests/support/SampleUnits.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <vector>

namespace Units {
namespace {

std::vector<double> values() {
  std::vector<double> all = {0.0,     -0.0,         1.0,      -459.67,  DBL_MAX,
                             DBL_MIN, DBL_TRUE_MIN, HUGE_VAL, -HUGE_VAL};
  for (Random random(1); all.size() < 2000;) all.push_back(random.number());
  return all;
}

void expectSameBits(double a, double b, const std::string& what) {
  if (std::isnan(a) && std::isnan(b)) return;
  EXPECT_EQ(bitsOf(a), bitsOf(b)) << what << ": " << a << " and " << b;
}

/// Prepares conversions by one engine and compares them with those of another.
void expectWhatConvertGives(const UnitsEngine& preparing, const UnitsEngine& engine) {
  const std::vector<double> all = values();
  const std::pair<const char*, const char*> conversions[] = {
      {"P", "Q"},     {"Q", "P"},       {"P", "P"},        {"PerL", "PerL"},
      {"L3", "PerL"}, {"PerL", "L3"},   {"Slow", "Speed"}, {"A", "B"},
      {"B", "A"},     {"None", "None"}, {"Nought", "P"},   {"P", "Nought"}};
  for (const auto& [from, to] : conversions) {
    const std::string what = std::string(from) + " to " + to;
    const PreparedConversion prepared(preparing, from, to);
    constexpr double behind = 7.5;  // stands behind what is converted, and stays
    std::vector<double> converted(all.size() + 1, behind);
    std::vector<double> inPlace = all;
    inPlace.push_back(behind);
    prepared.convert(all.data(), converted.data(), all.size());
    prepared.convert(inPlace.data(), inPlace.data(), all.size());
    EXPECT_EQ(converted.back(), behind);
    EXPECT_EQ(inPlace.back(), behind);
    for (std::size_t i = 0; i < all.size(); ++i) {
      const double expected = engine.convert(all[i], from, to);
      expectSameBits(prepared(all[i]), expected, what);
      expectSameBits(converted[i], expected, what + " in an array");
      expectSameBits(inPlace[i], expected, what + " in place");
    }
  }
}

TEST(PreparedConversion, GivesWhatConvertGives) {
  const std::shared_ptr<UnitsEngine> engine = filledEngine();
  engine->addUnit(
      {"Nought", "n", System::Metric, DerivedUnitComponent({{"P", 1}}, FactorComponent(-0.0))});
  expectWhatConvertGives(*engine, *engine);
  expectWhatConvertGives(HostEngine(engine), *engine);
}

}  // namespace
}  // namespace Units
