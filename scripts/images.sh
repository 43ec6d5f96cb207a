#!/usr/bin/env bash
# Takes the screenshots of docs/images: six pages of the site (run scripts/site.sh first), narrow and
# wide, light and dark; and the window of examples/window.cpp, in which a length is typed.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/setup.sh

install_packages images
site=$PWD/build/site images=$PWD/docs/images work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir -p "$images"

# page NAME PAGE WIDTH HEIGHT [light|dark]: what a browser shows of a page, in few colors.
page() {
  local scheme=1
  [ "${5:-light}" = light ] || scheme=0
  chromium --headless=new --no-sandbox --disable-gpu --hide-scrollbars --window-size="$3,$4" \
    --user-data-dir="$work/profile" --blink-settings=preferredColorScheme=$scheme \
    --virtual-time-budget=3000 --screenshot="$work/$1.png" "file://$site/$2" 2>"$work/log" ||
    { cat "$work/log" >&2; exit 1; }
  convert "$work/$1.png" +dither -colors 48 -strip "$images/$1.png"
}

# window: types a length into the field, presses Enter, and takes the window as it is then.
window() {
  cmake --build --preset release --target window
  xvfb-run -a -s "-screen 0 420x110x24" bash -c '
    build/release/examples/window schemas & id=$!
    xdotool search --sync --onlyvisible --name "^Length$" >/dev/null
    xdotool mousemove 200 35 click 1 type "5'\'' 6 1/2\" + 3 cm"
    xdotool key Return; sleep 1
    import -window root "$0"
    kill $id' "$work/window.png"
  convert "$work/window.png" -strip "$images/window.png"
}

if [ $# -gt 0 ]; then
  "$@"
  exit
fi
page first-page index.html 1280 900
page first-page-phone index.html 390 844 dark
page fields fields.html 1280 900 dark
page grammar grammar.html 1280 1000
page coming-from-phone coming-from.html 390 844
page units-dark space.html 1280 900 dark
window
ls -l "$images"
