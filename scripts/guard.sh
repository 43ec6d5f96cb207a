#!/usr/bin/env bash
# Counts the instructions of some benchmarks, as the test `guard` does. With --update it writes the
# measured ratios as the new expected ones.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/setup.sh

install_packages demo test
cmake --preset release
cmake --build build/release --target guard
cmake -D VALGRIND=valgrind -D PROGRAM=build/release/benchmarks/guard -D FOLDER=build/release/guard \
  -D EXPECTED=benchmarks/guard.txt ${1:+-D UPDATE=ON} -P cmake/Guard.cmake
