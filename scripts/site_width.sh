#!/usr/bin/env bash
# Fails if a page of build/site (run scripts/site.sh first) is wider than a phone or a tablet: a browser
# lays out each in a frame.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/setup.sh

install_packages width
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cat >"$work/frames.html" <<END
<body><pre></pre><script>
const frame = document.createElement("iframe");
const says = line => document.querySelector("pre").append(line + "\n");
document.body.append(frame);
async function measure(page) {
  await new Promise(loaded => { frame.onload = loaded; frame.src = "file://$PWD/build/site/" + page; });
  for (frame.width of [390, 768]) {
    const text = frame.contentDocument.getElementById("doc-content");
    if (text.scrollWidth > text.clientWidth)
      says(page + " needs " + text.scrollWidth + " of " + text.clientWidth + " at " + frame.width);
  }
}
(async () => {
  for (const page of "$(cd build/site && ls -- *.html | paste -sd ' ')".split(" ")) await measure(page);
  says("All pages are measured.");
})();
</script>
END
chromium --headless=new --no-sandbox --disable-gpu --hide-scrollbars --allow-file-access-from-files \
  --user-data-dir="$work/profile" --virtual-time-budget=1000000 --dump-dom "file://$work/frames.html" \
  2>"$work/log" | sed -n '/<pre>/,/<\/pre>/ { s/<[^>]*>//g; /./p }' >"$work/says" || { cat "$work/log" >&2; exit 1; }
cat "$work/says"
[ "$(cat "$work/says")" = "All pages are measured." ]
