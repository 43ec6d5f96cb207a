#pragma once

#include "json/LongExponents.h"
#include "json/TextStream.h"

#include <rapidjson/reader.h>

#include <string>

/// How texts are parsed, both into a document and for a walk.
constexpr unsigned parseFlags = rapidjson::kParseIterativeFlag | rapidjson::kParseInsituFlag;

/// What RapidJSON's default parse would report if the iterative one has reported `result`.
rapidjson::ParseResult asDefaultParse(const rapidjson::ParseResult& result, std::size_t textSize);

/// Reads `text` into `document`. The result, with error code and offset, is that of RapidJSON's
/// default parse. But it does not recurse, so that deeply nested text cannot overflow the stack,
/// and has no undefined behavior.
///
/// @param text  at most `JSON::longestText` bytes, none of them NUL. It is decoded in place: the
///              document's strings point into it, and it is no longer JSON.
rapidjson::ParseResult parseInPlace(RapidDocument& document, std::string& text);

/// Parses `text` in the same way, but gives the events to a handler.
///
/// @param text     as above. The strings of the events point into it.
/// @param handler  a handler of RapidJSON's, whose functions return true. `handler.source` is set
///                 to the stream. Its `Tell()` is the offset after the event's text; at the
///                 beginning and end of an object or array, the offset of the bracket.
template <class Handler>
rapidjson::ParseResult walkInPlace(std::string& text, Handler& handler) {
  boundExponents(text);
  TextStream stream(text);
  handler.source = &stream;
  rapidjson::GenericReader<rapidjson::UTF8<>, rapidjson::UTF8<>, ThrowingAllocator> reader;
  return asDefaultParse(reader.template Parse<parseFlags>(stream, handler), text.size());
}
