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

How fast the library is, compared with other libraries and simple baselines. Written by
`./scripts/benchmark.sh`, which verifies each result before it times it.

- **result** is the median ratio of CPU times in nine alternating rounds. A plain number is our time divided
  by that of the baseline; "times faster" is the inverse. "target" or "goal" after it says what was reached.
- **target** is the required ratio, **goal** a stricter one.
- **range** is the smallest and the largest of the nine ratios.
- **ours** and **theirs** are times or bytes per operation: a conversion, formula, text, definition or
  character.

The baselines:

- **UDUNITS-2, text to number**, parses the names of both units and makes a converter for each operation,
  because `convert` keeps nothing either. It parses a literal into a unit of that size.
- **libqalculate** is set up for speed: plain numbers, no intervals, twelve digits. It evaluates the formula
  divided by the unit of the result.
- **Two bare map lookups** find the sizes of both units in a `std::map`, once with copies of the ids, which our
  interface requires, and once without.
- **Arrays** are converted from feet to yards. UDUNITS-2 multiplies once, which rounds differently. The plain
  loop does exactly our arithmetic, division included.
- **Resident memory** is that of a process that only loads definitions, the median of nine. 4,009 bytes was
  the first measurement of the whole process.
- **Only reading the same files** walks the same folders. The system has cached the files.

END
  "$build/benchmarks/peers/peers"  # scripts/pictures.py draws the table
  "$build/benchmarks/peers/peers_rooms" | sed 1,2d
  cat <<'END'

![The table as a plot: our time divided by that of the baseline](pictures/performance.svg)

Calls keep no memory afterwards:

END
  "$build/benchmarks/allocations"
  cat <<'END'

The test `guard` counts instructions with valgrind, and fails if a ratio exceeds this table by more than a
tenth:

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
