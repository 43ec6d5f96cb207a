/// Arrays of numbers, converted by the loops of each kind of processor that this one can stand in
/// for: each result has the bits of the plain arithmetic. `Arrays [MILLIONS]` converts so many
/// millions of numbers by each loop, and as many reciprocally.
#include "prepared/ConversionLoops.h"
#include "prepared/ConversionSource.h"
#include "tests/support/Bits.h"
#include "tests/support/Check.h"
#include "tests/support/Random.h"

#include <TrelvonUnits/TrelvonUnits.h>

#include <cfloat>
#include <cmath>
#include <cstdlib>
#include <limits>
#include <memory>
#include <set>
#include <vector>

namespace {

using Units::LaneLoops;
using Units::LinearSteps;
using Values = std::vector<double>;

constexpr double infinity = std::numeric_limits<double>::infinity();

/// The factors of all units of the catalog.
Values catalogFactors() {
  const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  Schemas::SchemaUtility::addDefinitionsFromFolder(TRELVON_SCHEMAS_DIR, *engine);
  std::set<double> factors;
  for (const auto& [typeId, unit] : engine->getUnits())
    factors.insert(
        dynamic_cast<Units::ConversionSource&>(*engine).stepsOf(typeId, typeId).linear.toFactor);
  return {factors.begin(), factors.end()};
}

double significand(Random& random) {
  return std::ldexp(static_cast<double>(random.bits() >> 12) + 0x1p52, -52);
}

double anyFactor(Random& random, const Values& catalog) {
  static const double odd[] = {0.0,     -0.0,         -3.0,    infinity, -infinity,   0x1p-256,
                               0x1p256, 0x1.8p-257,   1.0,     1024.0,   DBL_MAX,     DBL_MIN,
                               1e-310,  DBL_TRUE_MIN, 0x3p256, 0x1p-40,  std::nan("")};
  const int kind = random.between(0, 9);
  if (kind == 0) return random.oneOf(odd);
  if (kind < 4) return std::ldexp(significand(random), random.between(-260, 260));
  return random.oneOf(catalog);
}

LinearSteps anySteps(Random& random, const Values& catalog) {
  const auto offset = [&] {
    static const double some[] = {-0.0, 273.15, 459.67, -1e300, infinity, 1e-320};
    return random.oneIn(4) ? random.oneOf(some) : 0.0;
  };
  const double fromFactor = random.oneIn(2) ? 1.0 : anyFactor(random, catalog);
  return {offset(), fromFactor, anyFactor(random, catalog), offset()};
}

/// Numerators x for which x / divisor lies as near as possible to the midpoint of two doubles:
/// 2^53 X or 2^54 X is an odd multiple of the significand, but for a small rest.
void addHardNumerators(double divisor, Values& values) {
  if (!std::isnormal(divisor)) return;
  const auto odd =
      static_cast<std::uint64_t>(std::scalbn(std::fabs(divisor), 52 - std::ilogb(divisor)));
  if (odd % 2 == 0) return;
  for (int power : {53, 54}) {
    std::uint64_t inverse = 1;
    for (int halved = 0; halved < power; ++halved)
      inverse = (inverse % 2 == 0 ? inverse : inverse + odd) / 2;
    std::uint64_t x = 0;
    for (int rest = 1; rest < 12; ++rest) {
      x = (x + inverse) % odd;
      for (const std::uint64_t numerator : {x, odd - x, x + odd, 2 * odd - x})
        values.push_back(static_cast<double>(numerator));
    }
  }
}

/// A few thousand numbers of one sort, or of all.
Values someValues(Random& random, double divisor) {
  Values values;
  if (random.oneIn(2)) addHardNumerators(divisor, values);
  const int sort = random.between(0, 5);
  const std::size_t count = 1000 + random.below(3000);
  while (values.size() < count) {
    const int kind = sort == 0 ? random.between(1, 5) : sort;
    if (kind == 1) values.push_back(random.number());
    if (kind == 2) values.push_back(random.anyDouble());
    if (kind == 3) values.push_back(std::ldexp(significand(random), random.between(-70, 70)));
    if (kind == 4) values.push_back(random.oneIn(3) ? 0.0 : random.between(-999, 999) / 8.0);
    if (kind == 5)
      values.push_back(
          std::ldexp(significand(random), random.between(250, 260) * (random.oneIn(2) ? 1 : -1)));
  }
  return values;
}

double plainly(double value, const LinearSteps& steps, bool isInverted) {
  if (!isInverted) return steps.apply(value);
  const double primitive = (steps.fromOffset + value) * steps.fromFactor;
  return std::pow(primitive, -1.0) / steps.toFactor - steps.toOffset;
}

/// Converts an array to one that begins `shift` numbers later in the same memory, or elsewhere.
void compare(const Values& values, const LinearSteps& steps, bool isInverted,
             const LaneLoops* loops, std::ptrdiff_t shift, bool isElsewhere) {
  constexpr std::size_t margin = 40;
  Values expected(values.size() + 2 * margin, 7.5);
  std::copy(values.begin(), values.end(), expected.begin() + margin);
  Values memory = expected;
  Values separate = expected;
  double* const from = memory.data() + margin;
  double* const plainFrom = expected.data() + margin;
  Values plainSeparate = expected;
  double* const to = (isElsewhere ? separate.data() + margin : from) + shift;
  double* const plainTo = (isElsewhere ? plainSeparate.data() + margin : plainFrom) + shift;
  for (std::size_t i = 0; i < values.size(); ++i)
    plainTo[i] = plainly(plainFrom[i], steps, isInverted);
  (isInverted ? Units::convertAllInverted : Units::convertAll)(from, to, values.size(), steps,
                                                               loops);
  const Values& got = isElsewhere ? separate : memory;
  const Values& right = isElsewhere ? plainSeparate : expected;
  for (std::size_t i = 0; i < got.size(); ++i)
    check(bitsOf(got[i]) == bitsOf(right[i]), loops ? loops->processor : "plain",
          isInverted ? ", inverted: " : ": ", got[i], " and not ", right[i], " at ", i, " by ",
          steps.fromOffset, ", ", steps.fromFactor, ", ", steps.toFactor, ", ", steps.toOffset);
}

std::size_t compareMany(const LaneLoops* loops, const Values& catalog, double most,
                        bool isInverted) {
  Random random(isInverted ? 2 : 1);
  std::size_t count = 0;
  while (static_cast<double>(count) < most && findings() < 20) {
    const LinearSteps steps = anySteps(random, catalog);
    const Values values = someValues(random, steps.toFactor);
    const bool isElsewhere = !random.oneIn(3);
    compare(values, steps, isInverted, loops, random.between(-30, 30) / 3 * 3, isElsewhere);
    count += values.size();
  }
  return count;
}

/// Factors divide the numerators that are hard for them: all of the catalog, and others.
void compareHard(const LaneLoops* loops, Values divisors, double others) {
  Random random(4);
  for (; others > 0; --others) divisors.push_back(significand(random));
  for (const double divisor : divisors) {
    Values values(128, 1.0);  // at least
    addHardNumerators(divisor, values);
    compare(values, {0.0, 1.0, divisor, 0.0}, false, loops, 0, true);
  }
}

/// Arrays so large that the results are written past the cache.
void compareLarge(const LaneLoops* loops) {
  Random random(3);
  Values values((std::size_t{1} << 22) + 99);
  for (double& value : values) value = random.number();
  for (const double divisor : {1.0, 0.9144})
    compare(values, {0.0, 0.3048, divisor, 1.0}, false, loops, 3, true);
}

}  // namespace

int main(int count, char** arguments) {
  const double most = 1e6 * (count > 1 ? std::atof(arguments[1]) : 1.0);
  const Values catalog = catalogFactors();
  std::vector<const LaneLoops*> all = {nullptr};
  for (const LaneLoops* const* loops = Units::allLaneLoops; *loops; ++loops)
    if ((*loops)->isUsable()) all.push_back(*loops);
  for (const LaneLoops* const loops : all) {
    compareHard(loops, catalog, most / 50);
    compareLarge(loops);
    const std::size_t linear = compareMany(loops, catalog, most, false);
    const std::size_t inverted = compareMany(loops, catalog, most, true);
    report(loops ? loops->processor : "plain", ": ", linear, " numbers, and ", inverted,
           " reciprocally, by ", catalog.size(), " factors of the catalog and others");
  }
  return verdict();
}
