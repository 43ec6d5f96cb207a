#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tool {

/// The words of a line, split as shells do: at blanks outside of quotes. A backslash takes the next
/// character as it is, except in single quotes.
struct ShellWords {
  std::vector<std::string> words;
  bool isOpen = false;    ///< Whether a quote is not closed, in the last word.
  std::size_t begin = 0;  ///< Where the last word begins in the line; its end after a blank.
};

ShellWords shellWords(std::string_view line);

}  // namespace tool
