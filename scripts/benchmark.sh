#!/usr/bin/env bash
# Times the library against its peers and against what no program can do without, and writes
# docs/performance.md. Best on a quiet machine, though the ratios bear a busy one.
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

Written by `./scripts/benchmark.sh`. Each work is timed in turns with what it is held against, in
one process and in the processor's time, for nine rounds; "reached" is the median of the nine
ratios. Every answer is checked before it is timed. The times beside it are those of one piece of
work: one conversion, formula, text, definition or character.

- UDUNITS-2 converts from text to number: it reads both units' names and makes a converter, and
  keeps neither, as `convert` keeps nothing. It reads a literal into a unit of that size.
- libqalculate is told to be no slower than it need: plain numbers, no intervals, twelve digits. It
  evaluates the formula divided by the unit of the result.
- The two look-ups find scales in a `std::map` of all units, their ids copied as the interface asks.
- The plain loop does the same arithmetic in the same order, with the processor's wider
  instructions.
- Files are read by the same walk over the same folders, from the system's cache.

END
  "$build/benchmarks/peers/peers"
  "$build/benchmarks/peers/peers_rooms" | sed 1,2d
  cat <<'END'

Nothing is kept from one call to the next, and no call needs more for what was called before it:

END
  "$build/benchmarks/allocations"
  cat <<'END'

The test `guard` counts instructions (valgrind) instead of times, and fails when a ratio is over
this table by more than a tenth:

```
END
  cat benchmarks/guard.txt
  cat <<END
\`\`\`

## Machine

- $(sed -n 's/^model name[^:]*: *//p' /proc/cpuinfo | head -n 1), $(nproc) cores, load $(cut -d ' ' -f 1 /proc/loadavg) when this was written
- $("$(compiler)" --version | head -n 1), preset \`release\`; C library $(version libc6)
- UDUNITS-2 $(version libudunits2-dev), libqalculate $(version libqalculate-dev), RapidJSON $(version rapidjson-dev)

## Take them again

\`\`\`
./scripts/benchmark.sh                        # all of this page
./scripts/guard.sh                            # instructions; --update writes them down
$build/benchmarks/peers/peers sum    # the rows that say "sum"
$build/benchmarks/peers/peers_benchmark  # both sides of each row, by Google Benchmark
$build/benchmarks/FormulaBenchmark   # formula by formula; QueriesBenchmark beside it
\`\`\`
END
}

install_packages demo benchmark
heading "Building the benchmarks"
cmake --preset release -B $build \
  -D TRELVONUNITS_BENCHMARKS=ON -D TRELVONUNITS_TESTS=OFF -D TRELVONUNITS_EXAMPLES=OFF -D TRELVONUNITS_INSTALL=OFF
cmake --build $build --parallel "$(nproc)"
heading "Taking turns"
write_page | tee $build/performance.md
cp $build/performance.md $page
heading "Written to $page"
