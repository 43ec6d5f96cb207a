#include "display/ScaleFinder.h"

#include "display/WrittenNumber.h"
#include "model/TextEdges.h"

namespace Units {

namespace {

constexpr std::string_view spaces[] = {" ", "\xC2\xA0", "\xE2\x80\xAF"};

/// The space at an edge of a text; empty if there is none.
std::string_view spaceAt(std::string_view text, bool isStart) {
  for (const std::string_view space : spaces)
    if (isStart ? startsWith(text, space) : endsWith(text, space)) return space;
  return {};
}

/// How many bytes at an edge of a text are the text of a unit; 0 if it is not there. Any space stands
/// for each of its spaces, but for those around it, which are no part of it.
std::size_t bytesOfUnit(std::string_view text, const DisplayScale& scale) {
  const std::size_t all = text.size();
  const bool isStart = scale.isPrefix;
  std::string_view unit = withoutOuterSpaces(scale.text);
  while (!unit.empty()) {
    const std::string_view wanted = unit.substr(isStart ? 0 : unit.size() - 1, 1);
    const std::string_view found = wanted == " " ? spaceAt(text, isStart) : wanted;
    const bool isFound = isStart ? startsWith(text, found) : endsWith(text, found);
    if (found.empty() || !isFound) return 0;
    isStart ? text.remove_prefix(found.size()) : text.remove_suffix(found.size());
    isStart ? unit.remove_prefix(1) : unit.remove_suffix(1);
  }
  return all - text.size();
}

}  // namespace

std::string_view withoutOuterSpaces(std::string_view text) {
  text.remove_prefix(spacesIn(text));
  while (!spaceAt(text, false).empty()) text.remove_suffix(spaceAt(text, false).size());
  return text;
}

const DisplayScale* findScale(std::string_view number, const std::vector<DisplayScale>& scales,
                              std::size_t& bytes) {
  const DisplayScale* longest = nullptr;
  for (const DisplayScale& scale : scales) {
    const std::size_t matched = bytesOfUnit(number, scale);
    if (matched <= bytes) continue;
    bytes = matched;
    longest = &scale;
  }
  if (!longest) return nullptr;
  // A text that begins or ends as numbers do is told from them by a space.
  const bool isPrefix = longest->isPrefix;
  const char edge = number[isPrefix ? bytes - 1 : number.size() - bytes];
  isPrefix ? number.remove_prefix(bytes) : number.remove_suffix(bytes);
  const bool needsSpace = edge >= ',' && edge <= '9' && longest->hasSpace;
  return !needsSpace || !spaceAt(number, isPrefix).empty() ? longest : nullptr;
}

}  // namespace Units
