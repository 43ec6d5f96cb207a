#include "json/ParseText.h"

#include <optional>
#include <string>

#include "json/LongExponents.h"

rapidjson::ParseResult parseText(RapidDocument& document, std::string_view text) {
  const std::optional<std::string> bounded = withBoundedExponents(text);
  rapidjson::StringStream stream(bounded ? bounded->c_str() : text.data());
  const rapidjson::ParseResult result =
      document.ParseStream<rapidjson::kParseIterativeFlag, rapidjson::UTF8<>>(stream);

  // The one difference between the two parsers: where no value begins, the iterative one calls a
  // document empty that begins with one of "]}:,".
  if (result.Code() == rapidjson::kParseErrorDocumentEmpty && result.Offset() < text.size())
    return rapidjson::ParseResult(rapidjson::kParseErrorValueInvalid, result.Offset());
  return result;
}
