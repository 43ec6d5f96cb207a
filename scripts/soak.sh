#!/usr/bin/env bash
# Runs the long versions of the tests that try to break the library: scripts/soak.sh [MINUTES]
# The fuzz targets run for MINUTES in total (60 by default), one per core at a time. The steps before
# take extra time. Prints the figures and the time of each step, and fails on any finding.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/setup.sh

minutes=${1:-60}
jobs=$(nproc)
work=$PWD/build/soak
mkdir -p "$work"
findings=()
times=()

# step TITLE COMMAND...: runs a step. Failures do not stop the script; it reports them at the end.
step() {
  local start=$SECONDS
  heading "$1"
  "${@:2}" || findings+=("$1")
  local seconds=$((SECONDS - start))
  times+=("$(printf '%3dm%02ds  %s' $((seconds / 60)) $((seconds % 60)) "$1")")
}

build() {  # PRESET
  cmake --preset "$1" >"$work/$1.configure"
  cmake --build --preset "$1" --parallel "$jobs" >"$work/$1.build" ||
    { tail -50 "$work/$1.build"; return 1; }
}

# The output of a suite goes to a file, whose end is shown if the suite fails.
suite() {  # PRESET
  build "$1" && ctest --preset "$1" --parallel "$jobs" >"$work/$1.test" ||
    { tail -50 "$work/$1.test"; return 1; }
  tail -20 "$work/$1.test" | grep 'tests passed'
}

coverage() {
  scripts/coverage.sh >"$work/coverage" 2>&1 || { tail -50 "$work/coverage"; return 1; }
  tail -2 "$work/coverage"
}

# Not covered by test.sh: other hosts that build the sources, and hosts built by both compilers that
# use a library built by clang++.
hosts() {
  { ctest --test-dir build/release -L soak &&
    ctest --test-dir build/clang -R '^contract[.](find_package|pkg_config)'; } >"$work/hosts" ||
    { tail -50 "$work/hosts"; return 1; }
  grep 'tests passed' "$work/hosts"
}

packages() {
  scripts/packages.sh >"$work/packages" 2>&1 || { tail -50 "$work/packages"; return 1; }
  tail -12 "$work/packages"
}

web() {
  scripts/web.sh >"$work/web" 2>&1 || { tail -50 "$work/web"; return 1; }
  grep -A 20 '==== The page in a browser' "$work/web"
}

memcheck() {
  # Deep inputs and failing allocations would take hours here; other steps cover them.
  valgrind --quiet --error-exitcode=1 --leak-check=full --errors-for-leak-kinds=definite,indirect \
    "$programs"/robustness_Callbacks
  valgrind --quiet --error-exitcode=1 --leak-check=full --errors-for-leak-kinds=definite,indirect \
    build/release/tests/units_tests --gtest_brief=1 --gtest_filter='-*Deep*:*Alloc*:*Memory*'
}

# Two of the targets create files: in memory, if there is a file system for that.
fuzz() {  # TARGET LANE
  local corpus=$work/corpus/$1 log=$work/fuzz.$1.$2 files=/dev/shm
  mkdir -p "$corpus"
  [ -d $files ] || files=${TMPDIR:-/tmp}
  TMPDIR=$files build/fuzz/tests/fuzz/fuzz_"$1" "$corpus" tests/fuzz/corpus/"$1" \
    -rss_limit_mb=4096 -timeout=60 -detect_leaks=0 -max_total_time="$seconds" \
    -artifact_prefix="$work/$1-" -print_final_stats=1 \
    >"$log" 2>&1 || echo "FINDING: the target ended with $?" >>"$log"
}

# Runs every target in turn. Each lane starts with a different target, so that no two lanes run the
# same target at once.
lane() {  # LANE
  local turn
  for turn in "${!targets[@]}"; do
    fuzz "${targets[($1 * ${#targets[@]} / jobs + turn) % ${#targets[@]}]}" "$1"
  done
}

# Prints one line per target with the figures of all lanes.
fuzz_targets() {
  local number target log
  rm -f "$work"/fuzz.*.*
  for ((number = 0; number < jobs; ++number)); do lane "$number" & done
  wait
  for target in "${targets[@]}"; do
    awk -v target="$target" '/number_of_executed_units/ { inputs += $2 }
      /peak_rss_mb/ { if ($2 > peak) peak = $2 }
      END { printf "%-12s %12d inputs, at most %5d MB\n", target, inputs, peak }' \
      "$work"/fuzz."$target".*
    for log in $(grep -l '^FINDING' "$work"/fuzz."$target".*); do
      findings+=("$log")
      tail -40 "$log"
    done
  done
}

install_packages demo test soak site postgresql servers
step "Building the release preset" build release
programs=build/release/tests/robustness

step "Failing allocations, peak memory, growth of instructions: the figures of the pages" \
  scripts/figures.py --check
step "Proportions: one dimension of definitions blown up, and pairs" \
  "$programs"/robustness_Proportions 350
step "Depth on a small stack, full size" "$programs"/robustness_Depths
step "Callbacks" "$programs"/robustness_Callbacks
step "Arrays, a billion numbers by each loop" "$programs"/robustness_Arrays 1000
step "Displays, 100,000,000 random values, and as many texts in two locales" \
  "$programs"/robustness_Displays
step "Threads: build with ThreadSanitizer" build tsan
step "Threads" build/tsan/tests/robustness/robustness_Threads 100
step "Memcheck of the suite" memcheck
step "The suite under the sanitizers, g++" suite asan
step "The suite under the sanitizers, clang++" suite asan-clang

step "The suite, optimized by clang++" suite clang
step "The suite with clang++'s own standard library" suite libcxx
step "All programs, benchmarks too, without precompiled headers" build plain

step "Hosts built with the other compiler" hosts
step "The same bits with every compiler and on every machine" scripts/bits.sh

step "The page: the table of cases and its own rows, under Node and in a browser" web
step "The site of the pages and the reference" scripts/site.sh
step "Its width on phones and tablets" scripts/site_width.sh
step "Coverage" coverage
step "Mutation test" scripts/mutants.py --samples 300
step "Packages, built and installed in clean trees" packages

step "Fuzz targets: build" build fuzz
mapfile -t targets < <(ls tests/fuzz/corpus)
seconds=$((minutes * 60 / ${#targets[@]} + 1))  # 0 would mean no limit
trap 'trap - INT TERM; kill 0' INT TERM  # stops the lanes, too
step "Fuzzing ${#targets[@]} targets for $((seconds * jobs)) s each, $jobs at a time" fuzz_targets

heading "Times"
printf '%s\n' "${times[@]}"

heading "${#findings[@]} findings"
for finding in "${findings[@]}"; do echo "$finding"; done
[ ${#findings[@]} -eq 0 ]
