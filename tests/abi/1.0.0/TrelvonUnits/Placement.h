#pragma once

#include <cstdint>

namespace Units {

/// Whether the text of a symbol is written before or after the number.
enum class Placement : std::int32_t {
  Prefix = 0,  ///< "Prefix" in schema texts: `$ 5`.
  Suffix = 1,  ///< "Suffix" in schema texts: `5 kg`; any text but "Prefix" is read as this.
};

}  // namespace Units
