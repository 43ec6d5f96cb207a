#include "tools/trelvon/prompt/ShellWords.h"

namespace tool {

ShellWords shellWords(std::string_view line) {
  ShellWords result;
  bool isInWord = false;
  char quote = '\0';
  for (std::size_t index = 0; index < line.size(); ++index) {
    const char c = line[index];
    if (quote == '\0' && (c == ' ' || c == '\t')) {
      isInWord = false;
      result.begin = index + 1;
      continue;
    }
    if (!isInWord) {
      result.words.emplace_back();
      result.begin = index;
    }
    isInWord = true;
    if (c == quote)
      quote = '\0';
    else if (quote == '\0' && (c == '\'' || c == '"'))
      quote = c;
    else if (c == '\\' && quote != '\'' && index + 1 < line.size())
      result.words.back() += line[++index];
    else
      result.words.back() += c;
  }
  result.isOpen = quote != '\0';
  return result;
}

}  // namespace tool
