#include "formula/SpanFinder.h"

#include <utility>

using Units::FormulaSpan;

FormulaSpan SpanFinder::find(std::size_t distance, std::size_t length) {
  while (open_.back().end >= distance) open_.pop_back();
  const std::size_t end = distance - length;
  auto last = open_.rbegin();
  while (last->end > end) ++last;
  const OpenText& first = open_.back();
  return {first.index, offset(first, distance), last->index, offset(*last, end)};
}

void SpanFinder::replaced(const FormulaSpan& identifier, std::size_t end, std::string text) {
  texts_.push_back({std::move(text), identifier});
  open_.push_back({texts_.size() - 1, end});
}

std::size_t SpanFinder::offset(const OpenText& text, std::size_t distance) const {
  return texts_[text.index].text.size() - (distance - text.end);
}
