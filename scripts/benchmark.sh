#!/usr/bin/env bash
# Benchmarks the library against other libraries and against baselines, and writes
# docs/performance.md. Use an idle machine if possible; the ratios tolerate a busy one.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/setup.sh

build=build/benchmark
page=docs/performance.md

version() {  # PACKAGE
  dpkg-query -W -f='${Version}' "$1" 2>/dev/null || echo "not installed"
}

compiler() {
  sed -n 's/^CMAKE_CXX_COMPILER:[A-Z]*=//p' $build/CMakeCache.txt
}

write_page() {
  cat <<'END'
# Performance

Written by `./scripts/benchmark.sh`. Each benchmark alternates with its baseline for nine rounds, in
one process. "result" is the median of the nine ratios of CPU time: a plain number is our time
divided by the time of the baseline, and "times faster" is the inverse. "range" has the least and the
greatest of the nine. The target is the required ratio, and the goal is a stricter one. The times "ours" and "theirs" are for one operation: one
conversion, formula, text, definition or character. Every result is verified before it is timed.

- UDUNITS-2 converts from text to number: it parses the names of both units and creates a converter,
  and keeps neither, just as `convert` caches nothing. It parses a literal into a unit of that size.
- libqalculate is configured for speed: plain numbers, no intervals, twelve digits. It evaluates the
  formula divided by the unit of the result.
- The two bare lookups find scales in a `std::map` of all units. The ids are copied, as the
  interface requires, and in another row they are not.
- The arrays are converted from feet to yards. UDUNITS-2 multiplies once, which rounds otherwise. The
  plain loop does the same arithmetic as ours in the same order, division included, with the wider
  instructions of the processor.
- Resident memory is that of a process that only loads: in the median of nine processes, all of it,
  shared libraries included, and by how much it grew. 4,009 bytes is the whole process when it was
  first measured.
- Only reading the files walks the same folders in the same way. The files are in the system's
  cache.

END
  "$build/benchmarks/peers/peers"  # scripts/pictures.py draws the table
  "$build/benchmarks/peers/peers_rooms" | sed 1,2d
  cat <<'END'

![The table as a plot: our time divided by that of the baseline](pictures/performance.svg)

Nothing is kept between calls, and no call needs more memory because of earlier calls:

END
  "$build/benchmarks/allocations"
  cat <<'END'

The test `guard` counts instructions (with valgrind) instead of measuring times. It fails if a ratio
exceeds this table by more than a tenth:

```
END
  cat benchmarks/guard.txt
  cat <<END
\`\`\`

## Machine

- $(sed -n 's/^model name[^:]*: *//p' /proc/cpuinfo | head -n 1), $(nproc) cores, load $(cut -d ' ' -f 1 /proc/loadavg) when this page was written
- $("$(compiler)" --version | head -n 1), preset \`release\`; C library $(version libc6)
- UDUNITS-2 $(version libudunits2-dev), libqalculate $(version libqalculate-dev), RapidJSON $(version rapidjson-dev)

## Run the benchmarks

\`\`\`
./scripts/benchmark.sh                        # writes this page
./scripts/guard.sh                            # instruction counts; --update writes the table
$build/benchmarks/peers/peers sum    # the rows whose name contains "sum"
$build/benchmarks/peers/peers_benchmark  # each benchmark and baseline, by Google Benchmark
$build/benchmarks/FormulaBenchmark   # formula by formula; there is also QueriesBenchmark
\`\`\`
END
}

install_packages demo benchmark
heading "Building the benchmarks"
cmake --preset release -B $build \
  -D TRELVONUNITS_BENCHMARKS=ON -D TRELVONUNITS_TESTS=OFF -D TRELVONUNITS_EXAMPLES=OFF -D TRELVONUNITS_INSTALL=OFF \
  -D TRELVONUNITS_TOOL=OFF
cmake --build $build --parallel "$(nproc)"
heading "Running the benchmarks"
write_page | tee $build/performance.md
cp $build/performance.md $page
scripts/pictures.py --performance
heading "Written to $page"
