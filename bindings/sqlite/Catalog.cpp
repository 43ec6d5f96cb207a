#include "bindings/sqlite/Catalog.h"

#include <dlfcn.h>

#include <filesystem>
#include <system_error>

namespace Sql {

namespace fs = std::filesystem;

namespace {

fs::path ownFolder() {
  static const char somethingInThisLibrary = 0;
  Dl_info found;
  if (dladdr(&somethingInThisLibrary, &found) == 0) return {};
  std::error_code error;
  const fs::path real = fs::canonical(found.dli_fname, error);
  return (error ? fs::path(found.dli_fname) : real).parent_path();
}

}  // namespace

Catalog findCatalog() {
  std::error_code error;
  fs::path folder = ownFolder();
  if (!fs::exists(folder / "catalog.bundle", error))
    folder = (folder / TRELVON_SQLITE_DATA).lexically_normal();
  return {(folder / "catalog.bundle").string(), (folder / "catalog.codes.json").string()};
}

}  // namespace Sql
