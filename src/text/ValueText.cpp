#include "text/ValueText.h"

#include "model/Characters.h"
#include "model/RecordAccess.h"
#include "text/CompositeReaders.h"
#include "text/LiteralReaders.h"

#include <algorithm>
#include <cstdint>

namespace Units {

namespace {

/// How a form reads a text, without its sign.
///
/// It is also valid for shorter texts that keep everything that was taken: they end before an
/// operator, which is neither a letter nor a digit, so the number and the symbol end at the same
/// places.
struct Reading {
  std::size_t taken = 0;       // bytes of the text that the reading depends on
  std::size_t literalEnd = 0;  // from `taken` up to here there are only spaces; 0 if no literal
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

constexpr std::array<CompositeReader, 4> compositeReaders = {{
    {readInchesOnly, CompositeForm::FeetAndInches, "\"'i"},
    {readFeetAndInches, CompositeForm::FeetAndInches, "\"'fi"},
    {readDegreesMinutesSeconds, CompositeForm::DegreesMinutesSeconds, "\"'\xC2"},
    {readMetersAndCentimeters, CompositeForm::MetersAndCentimeters, "cm"},
}};

constexpr unsigned anyReader = (1u << compositeReaders.size()) - 1;
constexpr unsigned beforeMarks = anyReader + 1;  // a byte that may precede the first mark

/// By the byte after the first number, a bit for each reader that may accept a composite literal.
/// The byte may also be part of the number.
constexpr std::array<std::uint8_t, 256> readersByMark = [] {
  std::array<std::uint8_t, 256> readers = {};
  const auto mark = [&](std::string_view bytes, unsigned bits) {
    for (const char c : bytes) {
      std::uint8_t& ofByte = readers[static_cast<unsigned char>(c)];
      ofByte = static_cast<std::uint8_t>(ofByte | bits);
    }
  };
  for (std::size_t i = 0; i < compositeReaders.size(); ++i)
    mark(compositeReaders[i].markBytes, 1u << i);
  mark("eExX", anyReader);
  mark("0123456789.+-/\x20\t\n\v\f\r", beforeMarks);
  return readers;
}();

unsigned readersFor(char mark) { return readersByMark[static_cast<unsigned char>(mark)]; }

bool isBeforeMarks(char c) { return readersFor(c) == beforeMarks; }

/// `5' 6"`, `10D 30'`, `2m 35cm`
Reading readComposite(std::string_view text, const SymbolTexts& symbols) {
  constexpr std::size_t glanceBytes = 64;  // more than people write before a mark
  Reading reading;
  const std::string_view glance = text.substr(0, glanceBytes);
  const std::size_t markAt = countLeading<isBeforeMarks>(glance);
  if (markAt == 0 || markAt == text.size()) return reading;  // no number, or nothing but numbers
  unsigned readers = markAt == glance.size() ? anyReader : readersFor(text[markAt]);
  for (const CompositeReader* reader = compositeReaders.data(); readers != 0;
       ++reader, readers /= 2) {
    if (readers % 2 == 0) continue;
    reading.taken = text.size();  // a reader of a whole text may depend on all of it
    if (!reader->read(text, reading.value)) continue;
    reading.symbol = symbols.composite(reader->form);
    reading.form = reader->form;
    reading.literalEnd = text.size();
    break;
  }
  return reading;
}

/// The longest of `ends` that a composite literal may have: no such literal holds one of the
/// operators below.
std::size_t lastCompositeEnd(std::string_view text, const LiteralEnds& ends) {
  for (std::size_t i = 0; i + 1 < ends.count; ++i) {
    const char c = text[ends.ends[i]];
    if (c == '(' || c == ')' || c == '*' || c == '^') return ends.ends[i];
  }
  return text.size();
}

/// A text in which literals are looked for.
struct Search {
  std::string_view text;  // after the sign
  std::size_t start;      // bytes of the sign
  const LiteralEnds& ends;
  const SymbolTexts& symbols;

  /// Replaces `literal` by the longest one of a form if that is longer.
  ///
  /// @param longest  longer texts are not of the form.
  template <Form form>
  void findLonger(std::size_t longest, ValueLiteral& literal) const {
    std::size_t count = ends.count;
    while (count > 0 && ends.ends[count - 1] > longest) --count;
    Reading reading = {std::string_view::npos};  // of no text: all are shorter
    for (; count > 0 && ends.ends[count - 1] > literal.length; --count) {
      const std::size_t length = ends.ends[count - 1] - start;
      if (length < reading.taken) reading = form(text.substr(0, length), symbols);
      if (length > reading.literalEnd) continue;
      literal = {start + length, reading.value, reading.symbol, reading.form};
      return;
    }
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
  stripSpaces(unsignedText);
  const bool negative = !unsignedText.empty() && unsignedText.front() == '-';
  if (negative) unsignedText.remove_prefix(1);
  stripSpaces(unsignedText);
  const std::size_t start = text.size() - unsignedText.size();
  const Search search = {unsignedText, start, ends, symbols};
  ValueLiteral literal = {start, 0.0, nullptr, std::nullopt};
  search.findLonger<readNumberFirst>(text.size(), literal);
  if (symbols.anyBeginsAs(unsignedText, Placement::Prefix))
    search.findLonger<readPrefixFirst>(text.size(), literal);
  search.findLonger<readComposite>(lastCompositeEnd(text, ends), literal);
  if (literal.length == start) return std::nullopt;
  if (negative) literal.value = -literal.value;
  return literal;
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
