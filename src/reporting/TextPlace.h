#pragma once

#include "json/TextPlaces.h"
#include "reporting/Findings.h"
#include "schema/ReadingTrace.h"

#include <TrelvonUnits/SchemaReport.h>

#include <string_view>
#include <vector>

namespace Schemas {

/// The number of the value at the end of a path, or `TextPlaces::none`.
std::size_t valueAt(const TextPlaces& places, const Units::ReadingTrace::Path& path);

/// Where the value at the end of a path is; if it is missing, where the value is that should have
/// it. For an object or array, just its bracket, since all of it may be the whole text.
Extent extentAt(const TextPlaces& places, const Units::ReadingTrace::Path& path);
Extent extentOf(const TextPlaces& places, std::size_t value);

/// Where a member's name is.
Extent nameOf(const TextPlaces& places, std::size_t member);

/// Where the value of the constant with an id is.
Extent extentOfConstant(std::string_view text, const char* id);

/// Where the type id is in a text.
Extent extentOfTypeId(std::string_view text);

/// The code point at an offset; empty at the end of the text.
Extent pointAt(std::string_view text, std::size_t offset);

/// The lines and columns of some offsets in a text, found in one pass.
class TextPositions {
 public:
  /// @param offsets  in any order; those beyond the text count as its end.
  TextPositions(std::string_view text, std::vector<std::size_t> offsets);

  /// @param offset  one of the given ones.
  const TextPosition& at(std::size_t offset) const;

 private:
  std::vector<std::size_t> offsets_;
  std::vector<TextPosition> positions_;
};

}  // namespace Schemas
