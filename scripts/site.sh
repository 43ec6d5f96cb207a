#!/usr/bin/env bash
# Builds the site of the pages and the reference in build/site; start with index.html. Fails on every
# warning, and if the site would load anything from elsewhere.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/setup.sh

install_packages site
rm -rf build/site
mkdir -p build/site
SITE_VERSION=$(sed -n 's/^  VERSION //p' CMakeLists.txt) PYTHONUTF8=1 doxygen docs/Doxyfile
if grep -rniE '(src|data)="(https?:)?//|<link[^>]*href="(https?:)?//|(url\(|@import)[ "'\'']*(https?:)?//' \
  --include='*.html' --include='*.css' --include='*.js' build/site; then
  echo "The site loads what these lines name." >&2
  exit 1
fi
echo "build/site/index.html"
