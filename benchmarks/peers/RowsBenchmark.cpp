/// Runs each row of `peers`, or of `peers_rooms`, as two benchmarks of Google Benchmark, "row/ours"
/// and "row/theirs". Rows that count instead of timing are skipped.
#include "benchmarks/peers/Turns.h"

#include <benchmark/benchmark.h>

#include <map>
#include <memory>

namespace {

/// Each row is prepared when the first of its two benchmarks runs.
using Prepared = std::map<std::string, peers::Sides>;

void run(benchmark::State& state, const peers::Row& row, peers::Side peers::Sides::*side,
         Prepared& prepared) {
  try {
    auto found = prepared.find(row.work + row.against);
    if (found == prepared.end())
      found = prepared.emplace(row.work + row.against, row.prepare()).first;
    const peers::Side& timed = found->second.*side;
    if (found->second.counted) return state.SkipWithError("counted, not timed");
    for (auto _ : state) {
      const peers::Leftover leftover = timed.call();
      state.PauseTiming();
      benchmark::DoNotOptimize(leftover);
      state.ResumeTiming();
    }
    state.SetItemsProcessed(
        static_cast<std::int64_t>(static_cast<double>(state.iterations()) * timed.pieces));
  } catch (const peers::Skipped& reason) {
    state.SkipWithError(reason.what());
  }
}

}  // namespace

int main(int count, char** arguments) {
  benchmark::Initialize(&count, arguments);
  const auto prepared = std::make_shared<Prepared>();
  const auto add = [&](const peers::Row& row, const char* name, peers::Side peers::Sides::*side) {
    benchmark::RegisterBenchmark(
        (row.work + ", " + row.against + name).c_str(),
        [=](benchmark::State& state) { run(state, row, side, *prepared); });
  };
  for (const peers::Row& row : peers::allRows()) {
    add(row, "/ours", &peers::Sides::ours);
    add(row, "/theirs", &peers::Sides::theirs);
  }
  benchmark::RunSpecifiedBenchmarks();
}
