#pragma once

#include <cstdint>

namespace Units {

/// The system that a unit belongs to, for hosts that offer one or the other. It plays no part in
/// conversion: metric and imperial units convert into each other.
enum class System : std::int32_t {
  Metric = 0,    ///< "Metric" in schema texts.
  Imperial = 1,  ///< "Imperial" in schema texts; any text but "Metric" is read as this.
};

}  // namespace Units
