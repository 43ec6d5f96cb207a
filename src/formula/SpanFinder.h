#pragma once

#include "formula/ExplanationContents.h"

#include <cstddef>
#include <string>
#include <vector>

/// Finds where the tokenizer is, in the formula or in a text that replaced an identifier. The
/// tokenizer tells it as a distance from the end of the text that is left to read, which is the
/// same for all texts that end later.
class SpanFinder {
 public:
  /// @param texts  the formula alone; grows with each replacement.
  explicit SpanFinder(std::vector<Units::ExplanationContents::TextData>& texts) : texts_(texts) {}

  /// The span of `length` bytes, at least 1, from a distance on. Distances never grow from call to
  /// call, except into what `replaced` added.
  Units::FormulaSpan find(std::size_t distance, std::size_t length);

  /// Adds a text that replaces what `identifier` covers.
  ///
  /// @param end  where reading continues after it, as a distance.
  void replaced(const Units::FormulaSpan& identifier, std::size_t end, std::string text);

 private:
  struct OpenText {
    std::size_t index;
    std::size_t end;  // as a distance
  };

  std::size_t offset(const OpenText& text, std::size_t distance) const;

  std::vector<Units::ExplanationContents::TextData>& texts_;
  std::vector<OpenText> open_ = {{0, 0}};
};
