/// Texts through the JSON room. RapidJSON's own default parse, which recurses, shows what ours must
/// give without recursion: the same document, or the same error at the same place.
#include "json/JSON.h"
#include "json/ParseInPlace.h"
#include "json/RapidJson.h"
#include "json/TextPlaces.h"
#include "tests/fuzz/Fuzzer.h"
#include "tests/unit/json/TextExceptions.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <functional>

namespace {

using namespace std::string_literals;

/// Pieces that bytes alone would seldom make, with the bytes that end or spoil them.
const std::string pieces[] = {
    "{",     "}",     "[",     "]",     ":",       ",",          "\"",         "\\",    " ",
    "\n",    "0",     "1",     "9",     "-",       "+",          ".",          "e",     "E",
    "t",     "n",     "\0"s,   "\x1F",  "\xC3",    "/",          "N",          "u",     "true",
    "fal",   "false", "null",  "\"a\"", "\"\":",   "[1,",        "{\"b\":",    "\\u00", "\\uD8",
    "\\uDC", "[[",    "]]",    "},",    "1.5",     "1e-",        "2147483648", "e-400", "e308",
    "[1]",   "{}",    "[0.5]", "e-999", "9999999", "0000000000", "\"\\\\\"",   "\"e-9"};

template <class Document>
std::string outcomeOf(const rapidjson::ParseResult& result, const Document& document) {
  if (result.IsError())
    return "error " + std::to_string(result.Code()) + " at " + std::to_string(result.Offset());
  rapidjson::StringBuffer buffer;
  rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
  document.Accept(writer);
  return {buffer.GetString(), buffer.GetSize()};
}

bool isShallow(const std::string& text) {
  return std::count_if(text.begin(), text.end(), [](char c) { return c == '[' || c == '{'; }) < 500;
}

/// The default parse overflows the stack on deep texts, and an int where the places of a fraction
/// join an exponent of ten digits.
bool isForTheDefaultParse(const std::string& text) {
  const auto isDigit = [](char c, char) { return '0' <= c && c <= '9'; };
  const bool hasTenDigits = std::search_n(text.begin(), text.end(), 10, '0', isDigit) != text.end();
  return isShallow(text) && (text.find('.') == std::string::npos || !hasTenDigits);
}

void checkReading(const std::string& text) {
  std::string read = text;
  read.shrink_to_fit();  // the reader wants a NUL behind the text: the block ends with it
  RapidDocument document;
  const rapidjson::ParseResult result = parseInPlace(document, read);
  if (!isForTheDefaultParse(text)) return;
  rapidjson::Document expected;
  expected.Parse(text.c_str());
  checkEqual(outcomeOf(result, document), outcomeOf(expected, expected), text);
}

/// What an action throws, if anything.
std::string refusal(const std::function<void()>& action) try {
  return action(), "";
} catch (const TextError& error) {
  return error.what();
}

void useMaps(const JSON& value) {
  refusal([&] { value.getStringIntMap(); });
  refusal([&] { value.getStringStringMap(); });
}

/// What was read is written, and that reads as the same.
void checkWriting(const std::string& text) {
  std::string written;
  const auto write = [&] {
    const JSON json = parse(text);
    useMaps(json);
    if (json.isArray())
      for (const JSON& element : json.getArray()) useMaps(element);
    if (!isShallow(text)) return;  // writing recurses: it is for what we built
    try {
      written = json.toString();
    } catch (const std::logic_error&) {  // a number at the edge, which RapidJSON reads as infinite
    }
  };
  checkEqual(refusal(write), refusal([&] { parse(text); }), text);
  // A number at the edge may be read as too big.
  if (written.empty() || written.find("e308") != std::string::npos) return;
  checkEqual(jsonShape(parse(written).toString()), jsonShape(written), text);
}

bool isOfKind(const JSON& json, TextPlaces::Kind kind) {
  using Kind = TextPlaces::Kind;
  return kind == Kind::Object   ? json.isObject()
         : kind == Kind::Array  ? json.isArray()
         : kind == Kind::String ? json.isString()
         : kind == Kind::Number ? json.isNumber()
                                : !json.isNumber();
}

/// The same fault; and each value lies where it is read alone.
void checkPlaces(const std::string& text) {
  const TextPlaces places(text);
  const auto& fault = places.fault();
  const std::string said =
      fault ? "JSON parsing error at offset " + std::to_string(fault->offset) + ": " + fault->reason
            : "";
  checkEqual(said, refusal([&] { parse(text); }), text);
  for (std::size_t number = 0; number < places.size(); ++number) {
    const auto& value = places.value(number);
    check(value.begin < value.end && value.end <= text.size(), text);
    if (fault) continue;  // objects and arrays may have no end
    const JSON read = parse(text.substr(value.begin, value.end - value.begin));
    check(isOfKind(read, value.kind), text);
    if (read.isString())
      check(read.getString() == value.text.substr(0, value.text.find('\0')), text);
  }
}

void checkDouble(double number) {
  if (!std::isfinite(number)) return;
  check(areSame(std::strtod(JSON(number).toString().c_str(), nullptr), number), number);
}

}  // namespace

void fuzz(Random& random) {
  const bool isOfPieces = random.takes('#');  // other inputs are texts as they stand
  if (isOfPieces) checkDouble(random.anyDouble());
  const std::string text = isOfPieces ? random.text(pieces, 12) : random.rest();
  checkReading(text.substr(0, text.find('\0')));
  checkWriting(text);
  checkPlaces(text);
}
