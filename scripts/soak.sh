#!/usr/bin/env bash
# The long forms of the tests that try to break the library: scripts/soak.sh [MINUTES]
# MINUTES (60 unless given) are how long the fuzz doors run, as many side by side as there are cores;
# what comes before takes its own time. Prints its figures and what each part took, and fails on any
# finding.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/setup.sh

minutes=${1:-60}
jobs=$(nproc)
work=$PWD/build/soak
mkdir -p "$work"
findings=()
times=()

# step TITLE COMMAND...: goes on after a failure, which is told at the end.
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

# Everything that a suite prints goes to a file; what failed is shown.
suite() {  # PRESET
  build "$1" && ctest --preset "$1" --parallel "$jobs" >"$work/$1.test" ||
    { tail -50 "$work/$1.test"; return 1; }
  tail -20 "$work/$1.test" | grep 'tests passed'
}

coverage() {
  scripts/coverage.sh >"$work/coverage" 2>&1 || { tail -50 "$work/coverage"; return 1; }
  tail -2 "$work/coverage"
}

# What test.sh leaves out: hosts that build the sources otherwise, and hosts of both compilers with
# a library by clang++.
hosts() {
  { ctest --test-dir build/release -L soak &&
    ctest --test-dir build/clang -R '^contract[.](find_package|pkg_config)'; } >"$work/hosts" ||
    { tail -50 "$work/hosts"; return 1; }
  grep 'tests passed' "$work/hosts"
}

memcheck() {
  # What is deep or fails by intent is left to the others: here it would take hours.
  valgrind --quiet --error-exitcode=1 --leak-check=full --errors-for-leak-kinds=definite,indirect \
    "$programs"/robustness_Callbacks
  valgrind --quiet --error-exitcode=1 --leak-check=full --errors-for-leak-kinds=definite,indirect \
    "$programs"/robustness_Killers
  valgrind --quiet --error-exitcode=1 --leak-check=full --errors-for-leak-kinds=definite,indirect \
    build/release/tests/units_tests --gtest_brief=1 --gtest_filter='-*Deep*:*Alloc*:*Memory*'
}

# Two of the doors make files: in memory, where there is such a place.
fuzz() {  # DOOR LANE
  local corpus=$work/corpus/$1 log=$work/fuzz.$1.$2 files=/dev/shm
  mkdir -p "$corpus"
  [ -d $files ] || files=${TMPDIR:-/tmp}
  TMPDIR=$files build/fuzz/tests/fuzz/fuzz_"$1" "$corpus" tests/fuzz/corpus/"$1" \
    -rss_limit_mb=4096 -timeout=60 -detect_leaks=0 -max_total_time="$seconds" \
    -artifact_prefix="$work/$1-" -print_final_stats=1 \
    >"$log" 2>&1 || echo "FINDING: the door ended with $?" >>"$log"
}

# Every door in turn. No lane begins where another does, so that none meets in a door.
lane() {  # LANE
  local turn
  for turn in "${!doors[@]}"; do
    fuzz "${doors[($1 * ${#doors[@]} / jobs + turn) % ${#doors[@]}]}" "$1"
  done
}

# The figures of all lanes in one line a door.
fuzz_doors() {
  local number door log
  rm -f "$work"/fuzz.*.*
  for ((number = 0; number < jobs; ++number)); do lane "$number" & done
  wait
  for door in "${doors[@]}"; do
    awk -v door="$door" '/number_of_executed_units/ { inputs += $2 }
      /peak_rss_mb/ { if ($2 > peak) peak = $2 }
      END { printf "%-12s %12d inputs, at most %5d MB\n", door, inputs, peak }' "$work"/fuzz."$door".*
    for log in $(grep -l '^FINDING' "$work"/fuzz."$door".*); do
      findings+=("$log")
      tail -40 "$log"
    done
  done
}

install_packages demo test soak
step "Building the release preset" build release
programs=build/release/tests/robustness

step "Failing allocations, peak memory, growth of instructions: the figures of the pages" \
  scripts/figures.py --check
step "Depth on a small stack, full size" "$programs"/robustness_Depths
step "Callbacks" "$programs"/robustness_Callbacks
step "Threads: build with ThreadSanitizer" build tsan
step "Threads" build/tsan/tests/robustness/robustness_Threads 100
step "Memcheck of the suite" memcheck
step "The suite under the sanitizers, g++" suite asan
step "The suite under the sanitizers, clang++" suite asan-clang

step "The suite, optimized by clang++" suite clang
step "The suite with clang++'s own standard library" suite libcxx
step "All programs, benchmarks too, without precompiled headers" build plain

step "Hosts built with the compilers changed over" hosts
step "The same bits with every compiler and on every machine" scripts/bits.sh

step "What the tests execute" coverage
step "What the tests notice" scripts/mutants.py --samples 300

step "Fuzz doors: build" build fuzz
mapfile -t doors < <(ls tests/fuzz/corpus)
seconds=$((minutes * 60 / ${#doors[@]} + 1))  # 0 would be for ever
trap 'trap - INT TERM; kill 0' INT TERM  # the lanes as well
step "Fuzzing ${#doors[@]} doors for $((seconds * jobs)) s each, $jobs at a time" fuzz_doors

heading "Times"
printf '%s\n' "${times[@]}"

heading "${#findings[@]} findings"
for finding in "${findings[@]}"; do echo "$finding"; done
[ ${#findings[@]} -eq 0 ]
