#pragma once

#include <cstddef>
#include <stdexcept>
#include <string_view>

namespace Schemas {

constexpr std::string_view bundleHeader = "TrelvonUnits-schema-bundle-1\n";

[[noreturn]] inline void rejectBundle() { throw std::logic_error("not a schema bundle"); }

/// Calls `use` with each text of a bundle, in order.
///
/// @throws std::logic_error  "not a schema bundle", before the first call.
template <class Use>
void forEachBundledText(std::string_view bundle, Use use) {
  if (bundle.substr(0, bundleHeader.size()) != bundleHeader) rejectBundle();
  bundle.remove_prefix(bundleHeader.size());
  if (!bundle.empty() && bundle.back() != '\0') rejectBundle();
  while (!bundle.empty()) {
    const std::size_t length = bundle.find('\0');
    use(bundle.substr(0, length));
    bundle.remove_prefix(length + 1);
  }
}

}  // namespace Schemas
