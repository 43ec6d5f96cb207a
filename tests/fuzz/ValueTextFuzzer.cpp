/// Values to display text and back. Numbers are read as strtod reads them and written as a stream
/// writes them; symbols are found as a walk over all of them finds them; what was written reads
/// back to what is written the same.
#include "tests/fuzz/Fuzzer.h"
#include "tests/unit/text/TextSymbols.h"
#include "text/ClassicNumber.h"
#include "text/CompositeReaders.h"
#include "text/DisplayText.h"
#include "text/ValueText.h"

#include <algorithm>
#include <cfloat>
#include <cmath>
#include <cstdlib>
#include <iomanip>
#include <locale>
#include <sstream>

namespace {

using namespace Units;

struct Symbols {
  const RecordStore<Symbol> records{makeTextSymbols()};
  const SymbolTexts texts{records};
};

const Symbols& symbols() {
  static const Symbols all;
  return all;
}

/// What strtod reads, the words for infinity and not-a-number apart.
LeadingNumber byStrtod(const std::string& text) {
  char* end = nullptr;
  const double value = std::strtod(text.c_str(), &end);
  const auto length = static_cast<std::size_t>(end - text.c_str());
  const bool isWord =
      text.substr(0, length).find_first_of("0123456789") == std::string::npos || std::isnan(value);
  return isWord ? LeadingNumber() : LeadingNumber{value, length};
}

void checkNumber(const std::string& text) {
  const LeadingNumber expected = byStrtod(text);
  const ExactText exact(text);
  const LeadingNumber read = readClassicDouble(exact);
  checkEqual(read.length, expected.length, text);
  // glibc errs among subnormal hexadecimal numbers.
  const bool errs = text.find_first_of("xX") < read.length && std::fabs(read.value) < DBL_MIN;
  check(errs || areSame(read.value, expected.value), text);
}

void checkFixed(double value, unsigned char places) {
  std::ostringstream stream;
  stream.imbue(std::locale::classic());
  stream << std::fixed << std::setprecision(places) << std::fabs(value);
  std::string text = "=";
  appendFixed(text, value, places);
  checkEqual(text, "=" + stream.str(), "fixed");
}

/// What any composite reader accepts is a value text, whole.
void checkText(const std::string& text) {
  const ExactText exact(text);
  double value = 0;
  const bool isComposite = readInchesOnly(exact, value) || readFeetAndInches(exact, value) ||
                           readDegreesMinutesSeconds(exact, value) ||
                           readMetersAndCentimeters(exact, value);
  const Symbol* symbol = nullptr;
  double read = 7;
  const bool isRead = parseValueText(exact, &read, &symbol, symbols().texts);
  check(!isComposite || isRead, text);
  check(isRead ? std::isfinite(read) : read == 7 && symbol == nullptr, text);
}

/// Every value has a text in every form, and it begins with its sign.
void checkDisplay(double value, Random& random) {
  for (const auto& [typeId, symbol] : symbols().records.records()) {
    if (typeId == "none") continue;
    const auto places = static_cast<unsigned char>(random.below(13));
    const auto precision = static_cast<unsigned char>(random.below(10));
    for (const std::string& text :
         {formatFixedPoint(value, places, &typeId, random.oneIn(2), symbols().records),
          formatFractional(value, precision, &typeId, symbols().records)})
      check(!text.empty() && (text[0] != '-' || value < 0 || std::isnan(value)), value, text);
  }
}

/// Reads what was written of a value.
double readBack(const std::string& text, const std::string& symbol, double value) {
  const ExactText exact(text);
  double read = 0;
  const Symbol* found = nullptr;
  check(parseValueText(exact, &read, &found, symbols().texts), "not read: ", text);
  checkEqual(found ? found->getTypeId() : "", symbol, text);
  check(std::fabs(read - value) <= 0.5, value, " reads back as ", read, ": ", text);
  return read;
}

/// What is written reads back as nearly the same. Written again that is the same text, but where
/// rounding made the text end in a whole minute, meter or foot.
void checkReadingBack(Random& random) {
  static const std::string feet = ":feetAndInches-1", hyphen = ":feetHyphenInches-1";
  const std::size_t shift = 24 + random.below(40);
  const double magnitude = static_cast<double>(random.bits() >> shift) / 1024.0;
  const double value = random.oneIn(2) ? -magnitude : magnitude;
  const auto places = static_cast<unsigned char>(random.below(4));
  const auto precision = static_cast<unsigned char>(random.below(10));
  for (const std::string& typeId :
       {std::string("meter"), std::string("kilogram"), std::string("dollar"), feet, hyphen,
        std::string(":degreesMinutesSeconds-1"), std::string(":metersAndCentimeters-1")})
    for (const bool isFractional : {false, true}) {
      const bool isFeet = typeId == feet || typeId == hyphen;
      const std::string readAs = isFeet ? feet : typeId;
      const auto write = [&](double number) {
        return isFractional && isFeet
                   ? formatFractional(number, precision, &typeId, symbols().records)
                   : formatFixedPoint(number, places, &typeId, isFractional, symbols().records);
      };
      const std::string first = write(value);
      if (first.find_first_of("123456789") == std::string::npos) continue;  // a zero has no sign
      const double read = readBack(first, readAs, value);
      const std::string text = write(read);
      checkEqual(write(readBack(text, readAs, read)), text, typeId);
    }
}

std::string anyText(Random& random, std::size_t most) {
  static const char* const pieces[] = {"a",  "a",        "b",    "m", "/", " ",
                                       "^2", "\xC2\xB0", "\xCE", "Z", "-"};
  return random.text(pieces, most);
}

Symbol anySymbol(Random& random) {
  static const Unit unit("unit", "unit", System::Metric, PrimitiveUnitComponent());
  std::string typeId = std::to_string(random.below(1000));
  const Placement placement = random.oneIn(2) ? Placement::Prefix : Placement::Suffix;
  if (!random.oneIn(4)) return {typeId, unit, PrefixOrSuffix(anyText(random, 4), placement, true)};
  for (const std::string_view key : specialSymbolKeys)
    if (random.oneIn(3)) typeId += key;
  return {typeId, unit, std::nullopt};
}

/// The first in byte order of those that fit and have the longest text, if it is not empty.
template <class Fits>
const Symbol* longest(const RecordStore<Symbol>& symbols, const Fits& fits) {
  const Symbol* best = nullptr;
  std::size_t bestLength = 0;
  for (const auto& [typeId, node] : symbols.nodes()) {
    const auto shown = node.record.getPrefixOrSuffix();
    if (!shown || !fits(*shown) || shown->getText().size() <= bestLength) continue;
    best = &node.record;
    bestLength = shown->getText().size();
  }
  return best;
}

bool beginsWith(std::string_view text, const std::string& word) {
  return text.substr(0, word.size()) == word &&
         (text.size() == word.size() ||
          std::string("abmZ").find(text[word.size()]) == std::string::npos);
}

/// Symbols that share texts, added in batches, are found by index as by walking over all of them.
void checkSymbols(Random& random) {
  RecordStore<Symbol> stored;
  SymbolTexts texts;
  for (std::size_t batches = random.below(4); batches > 0; --batches) {
    RecordStore<Symbol> batch;
    for (std::size_t count = random.below(12); count > 0; --count) {
      const Symbol symbol = anySymbol(random);
      const std::string typeId = symbol.getTypeId();
      if (!stored.find(typeId) && !batch.find(typeId)) batch.add(symbol);
    }
    SymbolTexts more(batch);
    stored.reserve(batch.size());
    stored.merge(batch);
    texts.merge(std::move(more));
  }
  for (std::size_t form = 0; form < specialSymbolKeys.size(); ++form) {
    const auto& nodes = stored.nodes();
    const auto first = std::find_if(nodes.begin(), nodes.end(), [&](const auto& node) {
      return !node.second.record.getPrefixOrSuffix() &&
             node.first.find(specialSymbolKeys[form]) != std::string::npos;
    });
    check(texts.composite(static_cast<CompositeForm>(form)) ==
              (first == nodes.end() ? nullptr : &first->second.record),
          specialSymbolKeys[form]);
  }
  for (int probe = 0; probe < 16; ++probe) {
    const ExactText exact(anyText(random, 6));
    const std::string_view text = exact;
    const auto isText = [&](const auto& shown) { return shown.getText() == text; };
    check(texts.withText(text) == longest(stored, isText), text);
    for (const auto& placement :
         {std::optional<Placement>(), {Placement::Prefix}, {Placement::Suffix}})
      check(texts.longestAtStart(text, placement) ==
                longest(stored,
                        [&](const auto& shown) {
                          return (!placement || shown.getPlacement() == *placement) &&
                                 beginsWith(text, shown.getText());
                        }),
            text);
  }
}

/// What numbers and composite literals are made of.
const std::string pieces[] = {
    "0x",    "0X", "0",  "1",   "9",   "7fa", "D",    ".",        ".",   "e",   "E",  "p",   "P",
    "+",     "-",  " ",  "\t",  "\v",  "e-",  "p+",   "inf",      "NaN", "(1)", "i",  "308", "324",
    "99999", "f8", "00", "123", "p-9", "e12", "a",    "8",        " ",   "'",   "\"", "''",  "ft",
    "in",    "m",  "cm", "/",   "x",   "*",   "inch", "\xC2\xB0", "$",   "kg",  "m^2"};

}  // namespace

void fuzz(Random& random) {
  if (random.takes('#')) {
    checkReadingBack(random);
    checkSymbols(random);
  } else if (random.takes('%')) {
    const double value =
        random.oneIn(2) ? static_cast<double>(random.bits()) / 1e6 : random.anyDouble();
    checkFixed(value, static_cast<unsigned char>(random.below(13)));
    checkDisplay(value, random);
    for (int count = 0; count < 16; ++count) {
      const std::string text = random.text(pieces, 9);
      checkNumber(text);
      checkText(text);
    }
  } else {
    const std::string text = random.rest();
    checkNumber(text);
    checkText(text);
  }
}
