#include "text/ValueText.h"

#include "model/RecordAccess.h"
#include "text/CompositeReaders.h"
#include "text/LiteralReaders.h"

#include <algorithm>
#include <iterator>

namespace Units {

namespace {

/// What a form makes of a text before its sign counts.
///
/// What follows a shorter text is an operator. No letter, it allows the text to end in a symbol; no
/// part of what has been taken, it does not change what that is. So a shorter text that holds all
/// that was taken is read like the longer one.
struct Reading {
  std::size_t taken = 0;    // how much of the text: a shorter one must be read anew
  std::size_t longest = 0;  // up to where there are but spaces then; 0 where this is no literal
  double value = 0.0;
  const Symbol* symbol = nullptr;
};

std::size_t countSpaces(std::string_view text) {
  std::size_t count = 0;
  while (count < text.size() && text[count] == ' ') ++count;
  return count;
}

/// `12.5`, `3 ft`
Reading readNumberFirst(std::string_view text, const SymbolTexts& symbols) {
  Reading reading;
  std::string_view rest = text;
  const LeadingNumber number = stripNumber(rest);
  if (number.length == 0) return reading;
  const bool counts = addNumber(number.value, reading.value);
  if (counts && !rest.empty())
    matchLeadingSymbol(rest, Placement::Suffix, &reading.symbol, symbols);
  reading.taken = text.size() - rest.size();
  if (counts) reading.longest = reading.taken + countSpaces(rest);
  return reading;
}

/// `$ 20`
Reading readPrefixFirst(std::string_view text, const SymbolTexts& symbols) {
  Reading reading;
  std::string_view rest = text;
  if (!matchLeadingSymbol(rest, Placement::Prefix, &reading.symbol, symbols)) return reading;
  const LeadingNumber number = stripNumber(rest);
  reading.taken = text.size() - rest.size();
  if (number.length > 0 && addNumber(number.value, reading.value))
    reading.longest = reading.taken + countSpaces(rest);
  return reading;
}

struct CompositeReader {
  bool (*read)(std::string_view text, double& value);
  CompositeForm form;
  std::string_view marks;  // how the marks begin one of which the form needs
};

constexpr CompositeReader compositeReaders[] = {
    {readInchesOnly, CompositeForm::FeetAndInches, "\"'i"},
    {readFeetAndInches, CompositeForm::FeetAndInches, "\"'fi"},
    {readDegreesMinutesSeconds, CompositeForm::DegreesMinutesSeconds, "\"'\xC2"},
    {readMetersAndCentimeters, CompositeForm::MetersAndCentimeters, "cm"},
};

/// Whether a composite literal may have a byte before its first mark.
bool isBeforeMarks(char c) {
  return (c >= '0' && c <= '9') || c == '.' || c == '+' || c == '-' || c == '/' || c == ' ' ||
         (c >= '\t' && c <= '\r');
}

/// What may be the first mark of a composite literal: what follows digits and signs. A glance, so
/// no further than a few numbers reach; what lies beyond may be any.
///
/// @return  0 where none follows, and so no form can be.
char findFirstMark(std::string_view text) {
  constexpr char any = 'e';
  constexpr std::size_t farEnough = 64;
  std::size_t length = 0;
  while (length < text.size() && isBeforeMarks(text[length])) {
    if (++length == farEnough) return any;
  }
  return length == 0 || length == text.size() ? '\0' : text[length];
}

/// `5' 6"`, `10D 30'`, `2m 35cm`
Reading readComposite(std::string_view text, const SymbolTexts& symbols) {
  constexpr std::string_view partsOfNumbers = "eExX";
  Reading reading;
  const char mark = findFirstMark(text);
  if (mark == '\0') return reading;
  const bool isOpen = partsOfNumbers.find(mark) != std::string_view::npos;
  for (const CompositeReader& reader : compositeReaders) {
    if (!isOpen && reader.marks.find(mark) == std::string_view::npos) continue;
    reading.taken = text.size();  // what such a reader looks at, it does not tell
    if (!reader.read(text, reading.value)) continue;
    reading.symbol = symbols.composite(reader.form);
    reading.longest = text.size();
    break;
  }
  return reading;
}

/// The length of the longest beginning that ends at one of `ends` and may be a composite literal,
/// as no operator lies inside that none of them has.
std::size_t longestComposite(std::string_view text, const LiteralEnds& ends) {
  constexpr std::string_view foreign = "()*^";
  for (std::size_t i = 0; i + 1 < ends.count; ++i)
    if (foreign.find(text[ends.ends[i]]) != std::string_view::npos) return ends.ends[i];
  return text.size();
}

}  // namespace

bool parseValueText(std::string_view text, double* value, const Symbol** symbol,
                    const SymbolTexts& symbols) {
  const auto literal = parseLongestValueText(text, {{text.size()}, 1}, symbols);
  if (!literal) return false;
  if (value) *value = literal->value;
  if (symbol) *symbol = literal->symbol;
  return true;
}

std::optional<ValueLiteral> parseLongestValueText(std::string_view text, const LiteralEnds& ends,
                                                  const SymbolTexts& symbols) {
  constexpr Reading (*forms[])(std::string_view, const SymbolTexts&) = {
      readNumberFirst, readPrefixFirst, readComposite};

  std::string_view unsignedText = text;
  const bool negative = stripLeadingWord(unsignedText, minus);
  const std::size_t start = text.size() - unsignedText.size();
  const std::size_t notRead = text.size() + 1;
  const std::size_t compositeEnd = std::max(longestComposite(text, ends), start);
  Reading readings[] = {{notRead}, {notRead}, {compositeEnd - start + 1}};

  for (std::size_t count = ends.count; count > 0 && ends.ends[count - 1] > start; --count) {
    const std::size_t length = ends.ends[count - 1] - start;
    for (std::size_t form = 0; form < std::size(forms); ++form) {
      Reading& reading = readings[form];
      if (length < reading.taken) reading = forms[form](unsignedText.substr(0, length), symbols);
      if (length <= reading.longest)
        return ValueLiteral{start + length, negative ? -reading.value : reading.value,
                            reading.symbol};
    }
  }
  return std::nullopt;
}

bool matchLeadingSymbol(std::string_view& text, std::optional<Placement> placement,
                        const Symbol** symbol, const SymbolTexts& symbols) {
  std::string_view rest = text;
  stripSpaces(rest);
  const Symbol* const found = symbols.longestAtStart(rest, placement);
  if (!found) return false;
  text = rest.substr(RecordAccess::text(*RecordAccess::prefixOrSuffix(*found)).size());
  if (symbol) *symbol = found;
  return true;
}

}  // namespace Units
