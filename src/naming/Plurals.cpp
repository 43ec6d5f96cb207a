#include "naming/Plurals.h"

#include "model/Characters.h"
#include "model/TextEdges.h"

#include <algorithm>

namespace Units {

namespace {

constexpr std::size_t longestText = 200;

/// The possible singular forms of a word in lower case.
std::vector<std::string> singularsOfWord(const std::string& word) {
  const auto without = [&](std::size_t count) { return word.substr(0, word.size() - count); };
  if (endsWith(word, "feet")) return {without(4) + "foot"};  // "squarefeet", too
  if (word.size() < 3 || word.back() != 's') return {};
  if (endsWith(word, "ies")) return {without(3) + "y", without(1)};
  if (endsWith(word, "es")) return {without(1), without(2)};  // "minutes", "inches"
  return {without(1)};
}

}  // namespace

std::vector<std::string> singularsOf(std::string_view text) {
  std::vector<std::string> all;
  if (text.size() > longestText) return all;
  std::string lower;
  for (const char c : text) lower += toLowerCase(c);
  for (std::size_t begin = 0; begin < lower.size();) {
    const std::size_t end = std::min(lower.find_first_of(" -_", begin), lower.size());
    for (const std::string& word : singularsOfWord(lower.substr(begin, end - begin)))
      all.push_back(lower.substr(0, begin) + word + lower.substr(end));
    begin = end + 1;
  }
  return all;
}

}  // namespace Units
