#!/usr/bin/env bash
# Builds and runs a demo on the shipped definitions: scripts/demo.sh [postgresql]
# With `postgresql`, runs ten queries on a temporary server. The output of the demo goes to standard
# output, the output of the build to standard error.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/setup.sh

# build_demo TARGET SETTING...: in a separate folder and without the parts that need more packages.
build_demo() {
  heading "Building the demo"
  cmake --preset release -B build/demo \
    -D TRELVONUNITS_TESTS=OFF -D TRELVONUNITS_BENCHMARKS=OFF -D TRELVONUNITS_DEVELOPER=OFF "${@:2}"
  cmake --build build/demo --target "$1"
  heading "The demo"
}

case "${1-}" in
  postgresql)
    {
      install_packages demo postgresql
      build_demo trelvon_postgresql -D TRELVONUNITS_TOOL=ON -D TRELVONUNITS_POSTGRESQL=ON
    } >&2
    exec /usr/bin/python3 -B scripts/postgresql_demo.py build/demo
    ;;
  "")
    {
      install_packages demo
      build_demo demo
    } >&2
    exec build/demo/examples/demo schemas
    ;;
  *)
    echo "usage: scripts/demo.sh [postgresql]" >&2
    exit 2
    ;;
esac
