#pragma once

#include <cstddef>
#include <utility>

namespace Units {

/// Makes room for `count` more entries of a hash table: doubled, since entries often come one by
/// one. An empty table has less room than its number of buckets says.
template <class Table>
void reserveMore(Table& table, std::size_t count) {
  const std::size_t size = table.size() + count;
  const auto room =
      static_cast<std::size_t>(table.max_load_factor() * static_cast<float>(table.bucket_count()));
  if (size >= room) table.reserve(2 * size);
}

/// Moves the entries of a container into another, which has room for them. What has its key there
/// stays behind.
template <class Container>
void mergeInto(Container& target, Container& source) noexcept {
  if (target.empty())
    target.swap(source);
  else
    target.merge(source);
}

}  // namespace Units
