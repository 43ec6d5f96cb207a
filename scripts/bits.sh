#!/usr/bin/env bash
# Checks that results have the same bits with every compiler and machine: scripts/bits.sh [COUNT]
# Builds the program `bits` with g++ and clang++ at -O0, -O2 and -O3, and for other machines, where
# it runs under qemu-user. For Windows it is only linked. Each build performs COUNT operations
# (1,000,000 by default). Prints the checksums of the first build. For the other builds, prints the
# kinds of operations whose checksum differs and how many operations differ. Fails if a kind differs
# that does not use any function of the C library.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/setup.sh
. scripts/compare_bits.sh

count=${1:-1000000}
work=$PWD/build/bits
failures=0

configure_and_build() {  # NAME CMAKE-OPTION...
  cmake -G Ninja -B "$work/$1" -D CMAKE_BUILD_TYPE=Release \
    -D TRELVONUNITS_RAPIDJSON_DIR="$work/headers" -D TRELVONUNITS_DEVELOPER=ON \
    -D TRELVONUNITS_BITS=ON -D TRELVONUNITS_EXAMPLES=OFF -D TRELVONUNITS_TESTS=OFF \
    -D TRELVONUNITS_TOOL=OFF "${@:2}" &&
    cmake --build "$work/$1" --parallel "$(nproc)"
}

build() {  # NAME FLAGS CMAKE-OPTION...
  configure_and_build "$1" -D CMAKE_CXX_FLAGS_RELEASE="$2" "${@:3}" >"$work/$1.log" 2>&1 ||
    { tail -50 "$work/$1.log"; exit 1; }
}

for_machine() {  # NAME
  build "$1" -O2 --toolchain "$PWD/cmake/toolchains/$1.cmake"
}

install_packages demo test bits

# RapidJSON is header-only: the headers of this machine serve all builds, without other headers from
# the same folder.
mkdir -p "$work/headers"
ln -sfn /usr/include/rapidjson "$work/headers/rapidjson"

heading "Compilers"
for compiler in g++ clang++; do
  for level in -O2 -O0 -O3; do
    build "$compiler$level" "$level" -D CMAKE_CXX_COMPILER="$compiler"
    program=$work/$compiler$level/tests/bits/bits
    if [ -z "${first:-}" ]; then
      sums_of_first "$compiler $level" "$program"
    else
      compare "$compiler $level" "$program"
    fi
  done
done

heading "Machines"
compare "without fused products in the C library" \
  env GLIBC_TUNABLES=glibc.cpu.hwcaps=-AVX2,-FMA,-FMA4 "$first"
for machine in i686:i386 aarch64:aarch64 s390x:s390x; do
  name=${machine%:*}-linux-gnu
  for_machine "$name"
  compare "$name" "qemu-${machine#*:}" -L "/usr/$name" "$work/$name/tests/bits/bits"
done

heading "Windows"
for_machine x86_64-w64-mingw32
ls "$work"/x86_64-w64-mingw32/{*.dll,tests/bits/*.exe}

heading "$failures kinds differ unexpectedly"
[ $failures -eq 0 ]
