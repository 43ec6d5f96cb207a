#include "model/CodePoints.h"
#include "model/ShownText.h"
#include "reporting/ExplanationWords.h"
#include "text/ShortNumber.h"

#include <TrelvonUnits/FormulaExplanation.h>

#include <algorithm>
#include <cstddef>
#include <string_view>

namespace Units {

namespace {

constexpr std::size_t shownBefore = 60, shownInAll = 200;  // bytes around what is marked

std::size_t countCodePoints(std::string_view text) {
  std::size_t count = 0;
  for (; !text.empty(); ++count) text.remove_prefix(firstCodePoint(text).bytes);
  return count;
}

/// Steps back to the start of a code point.
std::size_t alignedDown(std::string_view text, std::size_t offset) {
  const auto continues = [&](std::size_t at) {
    return at < text.size() && (static_cast<unsigned char>(text[at]) & 0xC0) == 0x80;
  };
  for (std::size_t steps = 0; steps < 3 && offset > 0 && continues(offset); ++steps) --offset;
  return offset;
}

/// A line of a text, or the part of it around a range, and a line of marks below the range.
std::string markedLines(std::string_view text, std::size_t begin, std::size_t end) {
  std::size_t first = 0, last = text.size();
  if (text.size() > shownInAll) {
    first = begin < shownBefore ? 0 : alignedDown(text, begin - shownBefore);
    last = alignedDown(text, std::min(first + shownInAll, text.size()));
  }
  end = std::clamp(end, begin, last);
  const std::string before =
                        (first > 0 ? "..." : "") + shownText(text.substr(first, begin - first)),
                    marked = shownText(text.substr(begin, end - begin)),
                    after =
                        shownText(text.substr(end, last - end)) + (last < text.size() ? "..." : "");
  const std::size_t marks = std::max<std::size_t>(countCodePoints(marked), 1);
  return before + marked + after + '\n' + std::string(countCodePoints(before), ' ') + '^' +
         std::string(marks - 1, '~') + '\n';
}

/// The lines for a span. If it lies in a replacement, the identifier in the formula comes first.
std::string markedLines(const std::vector<FormulaExplanation::Text>& texts,
                        const FormulaSpan& span) {
  std::string lines;
  if (span.text != 0) {
    FormulaSpan above = texts[span.text].identifier();
    while (above.text != 0) above = texts[above.text].identifier();
    lines = markedLines(texts[0].text(), above.begin, above.end);
  }
  const std::string& text = texts[span.text].text();
  return lines + markedLines(text, span.begin, span.endText == span.text ? span.end : text.size());
}

std::string withSpelling(std::string sentence, const std::string& spelling) {
  return shownText(sentence) + '\n' +
         (spelling.empty() ? "" : "  write: " + shownText(spelling) + '\n');
}

/// The value with the name of its unit, or with its powers.
std::string valueLine(const FormulaExplanation& explained) {
  std::string line = "= " + shortNumber(explained.value());
  if (!explained.unitTypeId().empty()) return line + " " + shownText(explained.unitTypeId()) + '\n';
  for (const auto& [unit, exponent] : explained.powers()) {
    line += " " + shownText(unit);
    if (exponent != 1) line += "^" + shortNumber(exponent);
  }
  return line + '\n';
}

}  // namespace

std::string FormulaExplanation::toText() const {
  const std::vector<Text> all = texts();
  std::string out;
  if (reason() != FormulaReason::Done) {
    out = markedLines(all, span()) + "error: " + withSpelling(sentence(), {});
    for (const std::string& spelling : spellings()) out += "  write: " + shownText(spelling) + '\n';
  }
  for (const Warning& warning : warnings())
    out += markedLines(all, warning.span()) +
           "warning: " + withSpelling(warning.sentence(), warning.spelling());
  if (out.empty()) out = shownText(formula()) + '\n';
  return reason() == FormulaReason::Done ? out + valueLine(*this) : out;
}

}  // namespace Units
