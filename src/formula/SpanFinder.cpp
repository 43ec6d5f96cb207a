#include "formula/SpanFinder.h"

using Units::FormulaSpan;

FormulaSpan SpanFinder::find(std::size_t distance, std::size_t length) {
  while (open_.back().end >= distance) open_.pop_back();
  const std::size_t end = distance - length;
  const OpenText& first = open_.back();
  const OpenText* last = &first;
  while (last->end > end) --last;
  const std::size_t beginOffset = first.size - (distance - first.end);
  const std::size_t endOffset = last->size - (end - last->end);
  if (spans_ == Spans::InTexts) return {first.index, beginOffset, last->index, endOffset};
  return {0, first.index == 0 ? beginOffset : first.identifier.begin, 0,
          last->index == 0 ? endOffset : last->identifier.end};
}

void SpanFinder::replaced(const FormulaSpan& identifier, std::size_t end, std::size_t size) {
  open_.push_back({textCount_++, end, size, identifier});
}
