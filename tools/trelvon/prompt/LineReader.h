#pragma once

#include "tools/trelvon/prompt/Completions.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tool {

/// Where the lines of a session come from.
class LineReader {
 public:
  virtual ~LineReader() = default;

  /// The next line, without its end. Empty at the end.
  /// @throws Failure  standard input cannot be read.
  virtual std::optional<std::string> next() = 0;
};

/// Lines of standard input as they are.
/// @param prompt  what is written before each line. Null: nothing.
std::unique_ptr<LineReader> readPlainLines(const char* prompt);

/// Lines that are edited on a terminal, with completion and history. Null if that is not possible
/// because the program was built without libedit, or the system has no UTF-8 locale.
/// @param complete  completes what stands before the cursor.
/// @param warn      receives a sentence if the history cannot be written.
std::unique_ptr<LineReader> editLines(const char* prompt,
                                      std::function<Completions(std::string_view)> complete,
                                      std::function<void(const std::string&)> warn);

}  // namespace tool
