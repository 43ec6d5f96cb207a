#pragma once

#include "json/RapidJson.h"

#include <string>

/// Reads `text` into `document`. The result, with error code and offset, is that of RapidJSON's
/// default parse. But it does not recurse, so that deeply nested text cannot overflow the stack,
/// and has no undefined behavior.
///
/// @param text  at most `JSON::longestText` bytes, none of them NUL. It is decoded in place: the
///              document's strings point into it, and it is no longer JSON.
rapidjson::ParseResult parseInPlace(RapidDocument& document, std::string& text);
