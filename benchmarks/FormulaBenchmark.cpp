/// Typical formulas, the cost of a formula by its length, and display text. The baselines are
/// parsing only the numbers of a formula, and formatting only a number.
#include "benchmarks/Catalog.h"

#include <benchmark/benchmark.h>

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <iterator>

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
    benchmark::DoNotOptimize(catalog().evaluateExpressionInUnit(in, row.formula));
}
BENCHMARK(Typical)->DenseRange(0, std::size(rows) - 1);

void NumbersAlone(benchmark::State& state) {
  const Row& row = rows[static_cast<std::size_t>(state.range(0))];
  state.SetLabel(row.formula);
  for (auto _ : state)
    for (const char* next = row.formula; *next != '\0';) {
      char* end = nullptr;
      benchmark::DoNotOptimize(std::strtod(next, &end));
      next = end == next ? next + 1 : end;
      while (*next != '\0' && (*next < '0' || *next > '9')) ++next;
    }
}
BENCHMARK(NumbersAlone)->DenseRange(0, std::size(rows) - 1);

void Literal(benchmark::State& state) {
  const std::string in = unit("foot");
  for (auto _ : state) benchmark::DoNotOptimize(catalog().evaluateExpressionInUnit(in, "2.5 ft"));
}
BENCHMARK(Literal);

/// Adds a counter: nanoseconds per repeated part of the formula.
void evaluateRepeated(benchmark::State& state, const std::string& formula) {
  for (auto _ : state) benchmark::DoNotOptimize(catalog().evaluateUnitlessExpression(formula));
  state.counters["each"] = benchmark::Counter(
      static_cast<double>(state.range(0)),
      benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void Sum(benchmark::State& state) {
  std::string formula = "1";
  for (auto terms = state.range(0); terms > 1; --terms) formula += "+1";
  evaluateRepeated(state, formula);
}
BENCHMARK(Sum)->RangeMultiplier(10)->Range(1000, 1000000);

void Parentheses(benchmark::State& state) {
  const auto depth = static_cast<std::size_t>(state.range(0));
  evaluateRepeated(state, std::string(depth, '(') + "1" + std::string(depth, ')'));
}
BENCHMARK(Parentheses)->RangeMultiplier(10)->Range(1000, 1000000);

void FormatFixedPoint(benchmark::State& state) {
  const std::string symbol = "trelvon.symbol:foot-1.0.0";
  for (auto _ : state)
    benchmark::DoNotOptimize(catalog().formatFixedPoint(1234.5678, 2, &symbol, true));
}
BENCHMARK(FormatFixedPoint);

void FormatFeetAndInches(benchmark::State& state) {
  const std::string symbol = "trelvon.symbol:feetAndInches-1.0.0";
  for (auto _ : state) benchmark::DoNotOptimize(catalog().formatFractional(1234.53125, 4, &symbol));
}
BENCHMARK(FormatFeetAndInches);

void NumberAlone(benchmark::State& state) {
  double value = 1234.5678;
  for (auto _ : state) {
    char text[32];
    benchmark::DoNotOptimize(value);
    benchmark::DoNotOptimize(std::snprintf(text, sizeof text, "%.2f", value));
  }
}
BENCHMARK(NumberAlone);

}  // namespace
