#!/usr/bin/env bash
# The long forms of the tests that try to break the library: scripts/soak.sh [MINUTES]
# MINUTES (60 unless given) are what the fuzz doors share; what comes before takes about 15 more on
# two cores. Prints its figures, and fails on any finding.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/setup.sh

minutes=${1:-60}
jobs=$(nproc)
work=$PWD/build/soak
mkdir -p "$work"
findings=()

# step TITLE COMMAND...: goes on after a failure, which is told at the end.
step() {
  heading "$1"
  "${@:2}" || findings+=("$1")
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

memcheck() {
  # What is deep or fails by intent is left to the others: here it would take hours.
  valgrind --quiet --error-exitcode=1 --leak-check=full --errors-for-leak-kinds=definite,indirect \
    "$programs"/robustness_Callbacks
  valgrind --quiet --error-exitcode=1 --leak-check=full --errors-for-leak-kinds=definite,indirect \
    "$programs"/robustness_Killers
  valgrind --quiet --error-exitcode=1 --leak-check=full --errors-for-leak-kinds=definite,indirect \
    build/release/tests/units_tests --gtest_brief=1 --gtest_filter='-*Deep*:*Alloc*:*Memory*'
}

fuzz() {  # DOOR
  local door=$1 corpus=$work/corpus/$1
  mkdir -p "$corpus"
  build/fuzz/fuzz/fuzz_"$door" "$corpus" fuzz/corpus/"$door" -rss_limit_mb=4096 -timeout=60 -detect_leaks=0 \
    -max_total_time="$seconds" -artifact_prefix="$work/$door-" -print_final_stats=1 \
    >"$work/fuzz.$door" 2>&1 || { tail -40 "$work/fuzz.$door"; return 1; }
  grep -E 'number_of_executed_units|peak_rss_mb' "$work/fuzz.$door"
}

install_packages demo test soak
step "Building the release preset" build release
programs=build/release/robustness

step "Failing allocations" "$programs"/robustness_Allocations
step "Peak memory" "$programs"/robustness_Memory
step "Depth on a small stack, full size" "$programs"/robustness_Depths
step "Callbacks" "$programs"/robustness_Callbacks
step "Growth of instructions from 10,000 to 20,000" \
  scripts/growth.py "$programs"/robustness_Growth 10000

step "Threads: build with ThreadSanitizer" build tsan
step "Threads" build/tsan/robustness/robustness_Threads 100
step "Memcheck of the suite" memcheck
step "The suite under the sanitizers, g++" suite asan
step "The suite under the sanitizers, clang++" suite asan-clang

step "Fuzz doors: build" build fuzz
doors=(fuzz/corpus/*/)
seconds=$((minutes * 60 / ${#doors[@]}))
for door in "${doors[@]}"; do
  step "Fuzzing $(basename "$door") for $seconds s" fuzz "$(basename "$door")"
done

heading "${#findings[@]} findings"
for finding in "${findings[@]}"; do echo "$finding"; done
[ ${#findings[@]} -eq 0 ]
