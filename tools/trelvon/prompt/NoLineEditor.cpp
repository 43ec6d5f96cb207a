/// Replaces LineEditor.cpp if there is no libedit.
#include "tools/trelvon/prompt/LineReader.h"

namespace tool {

std::unique_ptr<LineReader> editLines(const char* /*prompt*/,
                                      std::function<Completions(std::string_view)> /*complete*/,
                                      std::function<void(const std::string&)> /*warn*/) {
  return nullptr;
}

}  // namespace tool
