#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tool {

/// What may stand in place of the bytes before the cursor.
struct Completions {
  std::size_t typed = 0;  ///< How many bytes the texts replace.
  std::vector<std::string> texts = {};
};

}  // namespace tool
