#!/usr/bin/env bash
# Makes the page and tests it: scripts/web.sh [--page]
# With --page, only makes build/web/units.html: one file, which needs no other and no server. Otherwise
# also replays the table of cases under Node and in a browser, acts as a user of the page does, counts
# whose bits differ from the native library, and compares the speed. Emscripten builds its system
# libraries at its first run, which takes minutes.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/setup.sh
. scripts/compare_bits.sh

most_bytes=400000
count=200000
work=$PWD/build/web
failures=0
# Debian's packages for Node lie where only Debian's Node looks for them.
export NODE_PATH=/usr/share/nodejs

# logged NAME COMMAND...: shows the end of what a command says, if it fails.
logged() {
  "${@:2}" >"$work/$1.log" 2>&1 || { tail -50 "$work/$1.log"; exit 1; }
}

configure() {
  cmake -G Ninja -B "$work/wasm" -Wno-dev -D CMAKE_BUILD_TYPE=Release \
    --toolchain /usr/share/emscripten/cmake/Modules/Platform/Emscripten.cmake \
    -D CMAKE_CXX_FLAGS=-fwasm-exceptions -D CMAKE_EXE_LINKER_FLAGS=-sALLOW_MEMORY_GROWTH \
    -D CMAKE_CXX_FLAGS_RELEASE="-Os -DNDEBUG" \
    -D TRELVONUNITS_RAPIDJSON_DIR="$work/headers" -D TRELVONUNITS_DEVELOPER=ON \
    -D TRELVONUNITS_PRECOMPILE=ON -D TRELVONUNITS_BITS=ON -D TRELVONUNITS_EXAMPLES=OFF \
    -D TRELVONUNITS_TESTS=OFF -D TRELVONUNITS_TOOL=OFF -D TRELVONUNITS_INSTALL=OFF
}

page() {  # NAME SCRIPT...
  python3 -B bindings/web/assemble.py "$work" "$@"
}

# Makes a command `chromium` that runs as root, too, and leaves the user's profile alone.
browser() {
  local options="--disable-gpu --user-data-dir='$work/browser'"
  [ "$(id -u)" -ne 0 ] || options+=" --no-sandbox"
  mkdir -p "$work/bin"
  printf '#!/bin/sh\nexec /usr/bin/chromium %s "$@"\n' "$options" >"$work/bin/chromium"
  chmod +x "$work/bin/chromium"
}

case_files() {
  echo "const caseFiles = $(PYTHONUTF8=1 python3 -B tests/cases/cases.py --json wasm);"
}

# Prints what the page of tests has written into itself.
test_in_browser() {
  "$work/bin/chromium" --headless --virtual-time-budget=300000 --dump-dom "file://$work/tests.html" \
    >"$work/tests.dom" 2>"$work/browser.log" || { tail -20 "$work/browser.log"; return 1; }
  python3 - "$work/tests.dom" <<'END'
import html, re, sys
outcome = re.search(r'<pre id="tests">(.*?)</pre>', open(sys.argv[1], encoding="utf-8").read(), re.S)
text = html.unescape(outcome[1]) if outcome else "The page did not come to an end."
print(text)
sys.exit(0 if re.search(r"^[1-9]\d* cases, 0 differ\n[1-9]\d* rows, 0 differ$", text) else 1)
END
}

case ${1:-} in
  --page) install_packages demo web ;;
  *) install_packages demo test web ;;
esac

heading "Building"
mkdir -p "$work/headers"
ln -sfn /usr/include/rapidjson "$work/headers/rapidjson"
logged configure configure
logged build cmake --build "$work/wasm" --parallel "$(nproc)"
cp "$work/wasm/bindings/web/trelvon.wasm" "$work/"
page units

bytes=$(gzip -9 -c "$work/units.html" | wc -c)
[ "$bytes" -le $most_bytes ] || { echo "The page has more than $most_bytes bytes"; exit 1; }
[ "${1:-}" != --page ] || exit 0

heading "The page in a browser"
browser
case_files >"$work/case_files.mjs"
page tests "$work/case_files.mjs" tests/bindings/web/{cases,page,patience}.mjs
test_in_browser || failures=$((failures + 1))
page patient tests/bindings/web/patience.mjs
PAGE=$work/patient.html PYTHONUTF8=1 python3 -B tests/tool/pages.py "$work/bin/chromium" docs/web.md ||
  failures=$((failures + 1))

heading "The table of cases under Node"
PYTHONUTF8=1 python3 -B tests/cases/cases.py wasm tests/bindings/web/run_cases.mjs ||
  failures=$((failures + 1))

heading "The first example"
cmake --preset release >"$work/release.log"
logged release cmake --build --preset release --parallel "$(nproc)" --target bits trelvon_catalog
node --no-experimental-fetch examples/quickstart.mjs "$work/trelvon.wasm" \
  build/release/tools/trelvon/catalog.bundle | diff examples/quickstart.txt - || failures=$((failures + 1))

heading "Bits"
sums_of_first "The native library" build/release/tests/bits/bits
compare WebAssembly node --no-experimental-fetch "$work/wasm/tests/bits/bits.js"

heading "Speed"
gcc -std=c99 -O2 -Iinclude benchmarks/ConvertLoop.c -Lbuild/release -lTrelvonUnits \
  -Wl,-rpath,"$PWD/build/release" -o "$work/convert_loop"
node benchmarks/web_speed.mjs "$work" "$work/convert_loop"

heading "$failures failures"
[ $failures -eq 0 ]
