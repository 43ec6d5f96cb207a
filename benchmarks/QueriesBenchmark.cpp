/// The cost of the unit queries. The baseline is a plain loop that copies the same records.
#include "benchmarks/Catalog.h"

#include <benchmark/benchmark.h>

#include <map>

namespace {

using Records = std::map<std::string, Units::Unit>;

Records convertible() { return catalog().getConvertibleUnits(unit("bar")); }
Records withPowers() { return catalog().getUnitsWithPrimitivePowers({{unit("meter"), 1}}); }
Records primitive() { return catalog().getPrimitiveUnits(); }

template <Records (*query)()>
void Query(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(query());
}

/// The baseline: loops over all units and copies those that the query returns.
template <Records (*query)()>
void CopyOf(benchmark::State& state) {
  static const Records all = catalog().getUnits();
  const Records wanted = query();
  for (auto _ : state) {
    Records copied;
    for (const auto& [typeId, record] : all)
      if (wanted.count(typeId) != 0) copied.emplace_hint(copied.end(), typeId, record);
    benchmark::DoNotOptimize(copied);
  }
}

BENCHMARK(Query<convertible>);
BENCHMARK(CopyOf<convertible>);
BENCHMARK(Query<withPowers>);
BENCHMARK(CopyOf<withPowers>);
BENCHMARK(Query<primitive>);
BENCHMARK(CopyOf<primitive>);

}  // namespace
