#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tool {

/// Texts that can replace the bytes before the cursor.
struct Completions {
  std::size_t typed = 0;  ///< How many bytes the texts replace.
  std::vector<std::string> texts = {};
};

}  // namespace tool
