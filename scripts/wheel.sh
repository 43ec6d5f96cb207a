#!/usr/bin/env bash
# Builds the wheel for Python, without a network, and prints its path and size.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/setup.sh

install_packages demo wheel
cmake --preset release
cmake --build --preset release --target wheel
(cd build/release/bindings/python/wheels && stat -c "%n: %s bytes" *.whl)
