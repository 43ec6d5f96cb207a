#pragma once

#include <string>

namespace Sql {

/// The files of the catalog.
struct Catalog {
  std::string bundle;
  std::string codes;
};

/// Finds them relative to this library: next to it, or in the tree that it is installed in, which
/// may have been moved.
Catalog findCatalog();

}  // namespace Sql
