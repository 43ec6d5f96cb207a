#pragma once

#include <string>

#include "json/RapidJson.h"

/// Reads `text` into `document` with the result of RapidJSON's default parse, error code and offset
/// included, but without its recursion, which a text nested some 100,000 deep makes overflow the
/// stack, and without its undefined behaviour.
///
/// @param text  at most `JSON::longestText` bytes, none of them NUL. It is decoded where it
///              stands: the document's strings lie in it, and it is JSON no more.
rapidjson::ParseResult parseInPlace(RapidDocument& document, std::string& text);
