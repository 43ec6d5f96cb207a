#!/usr/bin/env bash
# Builds and runs the demo on the shipped definitions. The output of the demo goes to standard
# output, the output of the build to standard error.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/setup.sh

{
  install_packages demo
  heading "Building the demo"
  # In a separate folder and without the parts that need more packages: the demo needs no tests.
  cmake --preset release -B build/demo \
    -D TRELVONUNITS_TESTS=OFF -D TRELVONUNITS_BENCHMARKS=OFF -D TRELVONUNITS_DEVELOPER=OFF
  cmake --build build/demo --target demo
  heading "The demo"
} >&2
exec build/demo/examples/demo schemas
