#include "json/ParseInPlace.h"

#include "json/LongExponents.h"

rapidjson::ParseResult parseInPlace(RapidDocument& document, std::string& text) {
  constexpr unsigned flags = rapidjson::kParseIterativeFlag | rapidjson::kParseInsituFlag;
  boundExponents(text);
  rapidjson::InsituStringStream stream(text.data());
  const rapidjson::ParseResult result =
      document.ParseStream<flags, rapidjson::UTF8<>, rapidjson::InsituStringStream>(stream);

  // The only difference between the two parsers: the iterative one reports an empty document if the
  // text begins with one of "]}:,".
  if (result.Code() == rapidjson::kParseErrorDocumentEmpty && result.Offset() < text.size())
    return rapidjson::ParseResult(rapidjson::kParseErrorValueInvalid, result.Offset());
  return result;
}
