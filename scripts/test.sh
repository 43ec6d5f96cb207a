#!/usr/bin/env bash
# Builds and tests everything, with g++ as released and with clang++ under the sanitizers. Run it
# before you submit a change: scripts/test.sh [all]
# With `all`, also tests with database servers. scripts/soak.sh runs what takes longer.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/setup.sh

jobs=$(nproc)

build_and_test() {  # PRESET
  heading "$1: configure"
  cmake --preset "$1"
  heading "$1: build"
  cmake --build --preset "$1" --parallel "$jobs"
  heading "$1: test"
  ctest --preset "$1" --parallel "$jobs"
}

install_packages demo test
if [ "${1-}" = all ]; then install_packages postgresql servers; fi

build_and_test release  # includes the small hosts, built against an installation and the sources
if [ "${1-}" = all ]; then
  heading "release: test servers of databases"
  cmake --preset release -D TRELVONUNITS_POSTGRESQL=ON  # it may be off from an earlier build
  cmake --build --preset release --parallel "$jobs"
  ctest --test-dir build/release --label-regex servers --no-tests=error --output-on-failure
fi
heading "Formatting of the sources"
cmake --build build/release --target format-check
build_and_test asan-clang
heading "libcxx: build the library"
cmake --preset libcxx
cmake --build --preset libcxx-library --parallel "$jobs"

heading "Lines"
scripts/lines.py

heading "All tests passed"
