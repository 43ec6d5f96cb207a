#!/usr/bin/env bash
# Builds the site of the pages and the reference in build/site; start with index.html. Fails on each
# warning and dead link, and if the site would load anything from elsewhere. Where emscripten is
# installed, the site has the page of docs/web.md, too, which takes minutes to build at first;
# elsewhere the links to it lead to how it is made.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/setup.sh

install_packages site
rm -rf build/site
mkdir -p build/site
# The first page lists all others, in the order of the site.
pages=$(sed -n 's|^- \[.*](\([^)]*\.md\)).*|docs/\1|p' docs/README.md | paste -sd ' ')
export PYTHONUTF8=1
scripts/site_layout.py >build/site-layout.xml
if [ -z "$(missing_packages web)" ]; then
  scripts/web.sh --page
  mkdir build/site/page
  cp build/web/units.html build/site/page/
  export SITE_HAS_PAGE=1
fi
SITE_PAGES=$pages SITE_VERSION=$(sed -n 's/^  VERSION \([0-9.]*\)$/\1/p' CMakeLists.txt) \
  doxygen docs/Doxyfile
scripts/site_search.py build/site docs/README.md $pages
scripts/site_finish.py build/site
if grep -rniE '(src|data)="(https?:)?//|<link[^>]*href="(https?:)?//|(url\(|@import)[ "'\'']*(https?:)?//' \
  --include='*.html' --include='*.css' --include='*.js' build/site; then
  echo "The site loads the outside resources above." >&2
  exit 1
fi
linkchecker --config=scripts/linkchecker.ini build/site/index.html
echo "build/site/index.html"
