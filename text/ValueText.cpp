#include "text/ValueText.h"

#include "model/RecordAccess.h"
#include "text/ClassicNumber.h"
#include "text/CompositeReaders.h"
#include "text/LiteralReaders.h"

namespace Units {

namespace {

/// What a literal is read as before its sign counts.
struct Reading {
  double value = 0.0;
  const Symbol* symbol = nullptr;
};

/// `12.5`, `3 ft`
bool readNumberFirst(std::string_view text, Reading& reading, const SymbolTexts& symbols) {
  Reading read;
  if (!readNumber(text, read.value)) return false;
  if (!text.empty()) matchLeadingSymbol(text, Placement::Suffix, &read.symbol, symbols);
  if (!isAtEnd(text)) return false;
  reading = read;
  return true;
}

/// `$ 20`
bool readPrefixFirst(std::string_view text, Reading& reading, const SymbolTexts& symbols) {
  Reading read;
  if (!matchLeadingSymbol(text, Placement::Prefix, &read.symbol, symbols) ||
      !readNumber(text, read.value) || !isAtEnd(text))
    return false;
  reading = read;
  return true;
}

struct CompositeReader {
  bool (*read)(std::string_view text, double& value);
  CompositeForm form;
};

constexpr CompositeReader compositeReaders[] = {
    {readInchesOnly, CompositeForm::FeetAndInches},
    {readFeetAndInches, CompositeForm::FeetAndInches},
    {readDegreesMinutesSeconds, CompositeForm::DegreesMinutesSeconds},
    {readMetersAndCentimeters, CompositeForm::MetersAndCentimeters},
};

/// A cheap look at what follows the first number: without a mark, a hyphen, a slash or another
/// number there, no form goes on.
bool mayBeComposite(std::string_view text) {
  constexpr std::string_view goingOn = "'\"fimc\xC2-/+0123456789.eExX\t\n\v\f\r";
  stripSpaces(text);
  text.remove_prefix(readClassicDigits(text).length);
  stripSpaces(text);
  return !text.empty() && goingOn.find(text.front()) != std::string_view::npos;
}

bool readComposite(std::string_view text, Reading& reading, const SymbolTexts& symbols) {
  if (!mayBeComposite(text)) return false;
  for (const CompositeReader& reader : compositeReaders) {
    if (!reader.read(text, reading.value)) continue;
    reading.symbol = symbols.composite(reader.form);
    return true;
  }
  return false;
}

}  // namespace

bool parseValueText(std::string_view text, double* value, const Symbol** symbol,
                    const SymbolTexts& symbols) {
  const bool negative = stripLeadingWord(text, minus);
  Reading reading;
  if (!readNumberFirst(text, reading, symbols) && !readPrefixFirst(text, reading, symbols) &&
      !readComposite(text, reading, symbols))
    return false;
  if (value) *value = negative ? -reading.value : reading.value;
  if (symbol) *symbol = reading.symbol;
  return true;
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
