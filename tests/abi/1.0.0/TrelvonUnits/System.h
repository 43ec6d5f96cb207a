#pragma once

#include <cstdint>

namespace Units {

/// The family that a unit belongs to, for hosts that offer one or the other.
enum class System : std::int32_t {
  Metric = 0,    ///< "Metric" in schema texts.
  Imperial = 1,  ///< "Imperial" in schema texts; any text but "Metric" is read as this.
};

}  // namespace Units
