# Writes a header that identifies the catalog: cmake -D BUNDLE=... -D HEADER=... -P Catalog.cmake
file(SHA256 ${BUNDLE} digest)
file(SIZE ${BUNDLE} size)
file(WRITE ${HEADER} "/* Of the catalog that is installed with the extension. */
enum { CATALOG_SIZE = ${size} };
#define CATALOG_SHA256 \"${digest}\"
")
