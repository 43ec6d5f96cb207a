#pragma once

#include "model/ShortList.h"

#include <TrelvonUnits/FormulaExplanation.h>

#include <cstddef>

/// Finds where the tokenizer is, in the formula or in a text that replaced an identifier. The
/// tokenizer tells it as a distance from the end of the text that is left to read, which is the
/// same for all texts that end later.
class SpanFinder {
 public:
  enum class Spans {
    InTexts,    // where it stands
    InFormula,  // of what replaced an identifier of the formula, the identifier
  };

  SpanFinder(std::size_t formulaSize, Spans spans)
      : spans_(spans), open_{{0, 0, formulaSize, {}}} {}

  /// The span of `length` bytes, at least 1, from a distance on. Distances never grow from call to
  /// call, except into what `replaced` added.
  Units::FormulaSpan find(std::size_t distance, std::size_t length);

  /// Goes on in a text of `size` bytes that replaces what `identifier` covers.
  ///
  /// @param end  where reading goes on behind it, as a distance.
  void replaced(const Units::FormulaSpan& identifier, std::size_t end, std::size_t size);

 private:
  struct OpenText {
    std::size_t index;
    std::size_t end;  // as a distance
    std::size_t size;
    Units::FormulaSpan identifier;  // that it replaced
  };

  const Spans spans_;
  std::size_t textCount_ = 1;
  Units::ShortList<OpenText, 2> open_;
};
