#!/usr/bin/env bash
# Builds and tests everything, as it must be before a commit lands.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/setup.sh

jobs=$(nproc)

# build_and_test PRESET [CTEST OPTION...]
build_and_test() {
  local preset=$1
  shift
  heading "$preset: configure"
  cmake --preset "$preset"
  heading "$preset: build"
  cmake --build --preset "$preset" --parallel "$jobs"
  heading "$preset: test"
  ctest --preset "$preset" --parallel "$jobs" "$@"
}

install_packages demo test

# The release preset holds the contract tests too: little hosts on a fresh installation.
build_and_test release
heading "Layout of the sources"
cmake --build build/release --target format-check
build_and_test asan --label-regex '^(unit|example)$'
build_and_test clang --label-regex '^(unit|example)$'

heading "All is well"
