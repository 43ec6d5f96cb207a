/// Typical formulas, and how the cost of one grows with its length.
#include "benchmarks/Catalogue.h"

#include <benchmark/benchmark.h>

#include <cstddef>

namespace {

struct Row {
  const char* formula;
  const char* unit;
};

constexpr Row rows[] = {
    {"2 ft + 3 in", "meter"},
    {"-5' 6 1/2\" * 2", "foot"},
    {"10\xC2\xB0 30' 15\"", "degree"},
    {"30 mpg", "literPer100Kilometers"},
    {"sqrt(2 m^2 * 8 m^2)", "squareMeter"},
    {"(12.5 + 3) * 2 / 0.7 - 1e-3", "meter"},
    {"1.5 kN * 2 m / 3 + 4 N*m", "newtonMeter"},
    {"round(1.4 ft / 1 ft) * 1 ft", "foot"},
    {"sin(30 deg / 1 rad) * 10 kg * 9.80665 m/s^2", "newton"},
    {"0.5 * 1.2 kg/m^3 * (30 m/s)^2 * 2.2 m^2 * 0.3", "newton"},
};

void Typical(benchmark::State& state) {
  const Row& row = rows[static_cast<std::size_t>(state.range(0))];
  const std::string in = unit(row.unit);
  state.SetLabel(row.formula);
  for (auto _ : state)
    benchmark::DoNotOptimize(catalogue().evaluateExpressionInUnit(in, row.formula));
}
BENCHMARK(Typical)->DenseRange(0, std::size(rows) - 1);

/// A sum of as many terms; the counter is nanoseconds a term.
void Sum(benchmark::State& state) {
  std::string formula = "1";
  for (auto terms = state.range(0); terms > 1; --terms) formula += "+1";
  for (auto _ : state) benchmark::DoNotOptimize(catalogue().evaluateUnitlessExpression(formula));
  state.counters["perTerm"] = benchmark::Counter(
      static_cast<double>(state.range(0)),
      benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}
BENCHMARK(Sum)->RangeMultiplier(10)->Range(1000, 1000000);

}  // namespace
