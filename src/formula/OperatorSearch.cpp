#include "formula/OperatorSearch.h"

const Units::LiteralEnds& OperatorSearch::findEnds(std::string_view rest) {
  const std::size_t passed = size_ - rest.size();
  std::size_t count = 0;
  for (std::size_t i = 0; i < ends_.count; ++i)
    if (ends_.ends[i] > passed) ends_.ends[count++] = ends_.ends[i] - passed;

  // Past the end of the text, once that is known.
  std::size_t position = count == 0 ? 0 : ends_.ends[count - 1] + 1;
  for (; count < Units::LiteralEnds::most && position <= rest.size(); ++position) {
    while (position < rest.size() && !isOperator(rest[position])) ++position;
    ends_.ends[count++] = position;
  }
  ends_.count = count;
  size_ = rest.size();
  return ends_;
}
