#!/usr/bin/env bash
# Reports which lines and branches of the library its tests execute: scripts/coverage.sh
# Fails if a line is not executed that tests/coverage/exceptions.txt does not list, or if too many
# branch outcomes are not covered.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/setup.sh

build=build/coverage
install_packages demo test soak

heading "coverage: build"
cmake --preset coverage
cmake --build --preset coverage --parallel "$(nproc)"

# For the fuzz targets, only the kept inputs count: no test checks what random ones reach by chance.
heading "coverage: test"
rm -rf $build/profiles
ctest --preset coverage --parallel "$(nproc)"
export LLVM_PROFILE_FILE=$PWD/$build/profiles/%4m.profraw
for corpus in tests/fuzz/corpus/*; do
  $build/tests/fuzz/fuzz_"${corpus##*/}" "$corpus" 0
done

heading "coverage: figures"
llvm-profdata merge -o $build/all.profdata $build/profiles/*.profraw
scripts/coverage.py tests/coverage/exceptions.txt $build/all.profdata $build/libTrelvonUnits.so \
  $build/tests/units_tests $build/tests/catalog/catalog_{dump,tests} $build/tests/robustness/robustness_*
