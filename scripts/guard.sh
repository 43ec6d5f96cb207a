#!/usr/bin/env bash
# Counts the instructions of some works, as the test `guard` does. With --update it writes the
# ratios that it finds as those to be kept.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/setup.sh

install_packages demo test
cmake --preset release
cmake --build build/release --target guard
cmake -D VALGRIND=valgrind -D PROGRAM=build/release/benchmarks/guard -D FOLDER=build/release/guard \
  -D EXPECTED=benchmarks/guard.txt ${1:+-D UPDATE=ON} -P cmake/Guard.cmake
