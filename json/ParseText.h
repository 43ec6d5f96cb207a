#pragma once

#include <string_view>

#include "json/RapidJson.h"

/// Reads `text` into `document` with the result of RapidJSON's default parse, error code and offset
/// included, but without its recursion, which a text nested some 100,000 deep makes overflow the
/// stack, and without its undefined behaviour.
///
/// @param text  at most `JSON::kLongestText` bytes, none of them NUL, with a NUL behind them.
rapidjson::ParseResult parseText(RapidDocument& document, std::string_view text);
