#include "text/ValueText.h"

#include "model/Characters.h"
#include "model/RecordAccess.h"
#include "text/CompositeReaders.h"
#include "text/LiteralReaders.h"

#include <algorithm>

namespace Units {

namespace {

/// What a form makes of a text, without its sign.
///
/// It holds for shorter texts too, as long as they keep all that was taken: they end before an
/// operator, which is no letter and no digit, so that the number and the symbol end where they did.
struct Reading {
  std::size_t taken = 0;       // bytes of the text that the reading depends on
  std::size_t literalEnd = 0;  // from `taken` up to here there are spaces alone; 0 if no literal
  double value = 0.0;
  const Symbol* symbol = nullptr;
  std::optional<CompositeForm> form = std::nullopt;
};

using Form = Reading(std::string_view text, const SymbolTexts& symbols);

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
  if (counts) reading.literalEnd = reading.taken + countLeading<isSpace>(rest);
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
    reading.literalEnd = reading.taken + countLeading<isSpace>(rest);
  return reading;
}

struct CompositeReader {
  bool (*read)(std::string_view text, double& value);
  CompositeForm form;
  std::string_view markBytes;  // the first bytes of the marks that may come first in a literal
};

constexpr CompositeReader compositeReaders[] = {
    {readInchesOnly, CompositeForm::FeetAndInches, "\"'i"},
    {readFeetAndInches, CompositeForm::FeetAndInches, "\"'fi"},
    {readDegreesMinutesSeconds, CompositeForm::DegreesMinutesSeconds, "\"'\xC2"},
    {readMetersAndCentimeters, CompositeForm::MetersAndCentimeters, "cm"},
};

/// Whether a composite literal may have a byte before its first mark.
bool isBeforeMarks(char c) {
  return isDigit(c) || c == '.' || c == '+' || c == '-' || c == '/' || isWhiteSpace(c);
}

/// `5' 6"`, `10D 30'`, `2m 35cm`
Reading readComposite(std::string_view text, const SymbolTexts& symbols) {
  constexpr std::size_t glanceBytes = 64;  // more than people write before a mark
  constexpr std::string_view partsOfNumbers = "eExX";
  Reading reading;
  const std::string_view glance = text.substr(0, glanceBytes);
  const std::size_t markAt = countLeading<isBeforeMarks>(glance);
  if (markAt == 0 || markAt == text.size()) return reading;  // no number, or nothing but numbers
  const bool mayBeAnyForm =
      markAt == glance.size() || partsOfNumbers.find(text[markAt]) != std::string_view::npos;
  for (const CompositeReader& reader : compositeReaders) {
    if (!mayBeAnyForm && reader.markBytes.find(text[markAt]) == std::string_view::npos) continue;
    reading.taken = text.size();  // a reader of a whole text may depend on all of it
    if (!reader.read(text, reading.value)) continue;
    reading.symbol = symbols.composite(reader.form);
    reading.form = reader.form;
    reading.literalEnd = text.size();
    break;
  }
  return reading;
}

/// The longest of `ends` that a composite literal may have: no such literal holds one of the
/// operators below.
std::size_t lastCompositeEnd(std::string_view text, const LiteralEnds& ends) {
  constexpr std::string_view operatorsInNoComposite = "()*^";
  for (std::size_t i = 0; i + 1 < ends.count; ++i)
    if (operatorsInNoComposite.find(text[ends.ends[i]]) != std::string_view::npos)
      return ends.ends[i];
  return text.size();
}

/// Reads ever shorter beginnings of a text by one form, anew only where it must.
struct FormReader {
  Form* form;
  std::size_t longest;  // longer texts are not of the form
  Reading reading = {notRead};

  static constexpr std::size_t notRead = std::string_view::npos;  // any text is shorter

  /// Whether the first `length` bytes of a text are a literal of the form; `reading` then is its.
  bool reads(std::string_view text, std::size_t length, const SymbolTexts& symbols) {
    if (length > longest) return false;
    if (length < reading.taken) reading = form(text.substr(0, length), symbols);
    return length <= reading.literalEnd;
  }
};

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
  std::string_view unsignedText = text;
  const bool negative = stripLeadingWord(unsignedText, minus);
  const std::size_t start = text.size() - unsignedText.size();
  const std::size_t compositeEnd = std::max(lastCompositeEnd(text, ends), start);
  FormReader readers[] = {{readNumberFirst, unsignedText.size()},
                          {readPrefixFirst, unsignedText.size()},
                          {readComposite, compositeEnd - start}};

  for (std::size_t count = ends.count; count > 0 && ends.ends[count - 1] > start; --count) {
    const std::size_t length = ends.ends[count - 1] - start;
    for (FormReader& reader : readers) {
      const Reading& found = reader.reading;
      if (reader.reads(unsignedText, length, symbols))
        return ValueLiteral{start + length, negative ? -found.value : found.value, found.symbol,
                            found.form};
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
