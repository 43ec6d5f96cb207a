#!/usr/bin/env bash
# Shows the library at work on the shipped definitions. The demo's own words go to the standard
# output, how the build goes on to the standard error.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/setup.sh

{
  install_packages demo
  heading "Building the demo"
  # In a folder of its own and without what wants more packages: who only looks needs no tests.
  cmake --preset release -B build/demo \
    -D TRELVONUNITS_TESTS=OFF -D TRELVONUNITS_BENCHMARKS=OFF -D TRELVONUNITS_DEVELOPER=OFF
  cmake --build build/demo --target demo
  heading "The demo"
} >&2
exec build/demo/examples/demo schemas
