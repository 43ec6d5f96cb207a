#!/usr/bin/env bash
# Which lines and branches of the library its own tests execute: scripts/coverage.sh
# Prints its figures, and fails where a line is missed that tests/coverage/exceptions.txt does not
# name, or where too many branches are.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/setup.sh

build=build/coverage
install_packages demo test soak

heading "coverage: build"
cmake --preset coverage
cmake --build --preset coverage --parallel "$(nproc)"

# Made texts (label fuzz) stay out: what they happen to reach, no row holds.
heading "coverage: test"
rm -rf $build/profiles
ctest --preset coverage --parallel "$(nproc)"

heading "coverage: figures"
llvm-profdata merge -o $build/all.profdata $build/profiles/*.profraw
scripts/coverage.py tests/coverage/exceptions.txt $build/all.profdata $build/libTrelvonUnits.so \
  $build/tests/units_tests $build/tests/catalogue/catalogue_{dump,tests} $build/tests/robustness/robustness_*
