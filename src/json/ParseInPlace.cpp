#include "json/ParseInPlace.h"

rapidjson::ParseResult asDefaultParse(const rapidjson::ParseResult& result, std::size_t textSize) {
  // The only difference between the two parsers: the iterative one reports an empty document if the
  // text begins with one of "]}:,".
  if (result.Code() == rapidjson::kParseErrorDocumentEmpty && result.Offset() < textSize)
    return rapidjson::ParseResult(rapidjson::kParseErrorValueInvalid, result.Offset());
  return result;
}

rapidjson::ParseResult parseInPlace(RapidDocument& document, std::string& text) {
  boundExponents(text);
  TextStream stream(text);
  const rapidjson::ParseResult result =
      document.ParseStream<parseFlags, rapidjson::UTF8<>, TextStream>(stream);
  return asDefaultParse(result, text.size());
}
