#include "formula/OperatorSearch.h"

#include <algorithm>

namespace {

std::size_t byteAt(std::string_view text, std::size_t position) {
  return static_cast<unsigned char>(text[position]);
}

}  // namespace

OperatorSearch::OperatorSearch(const Units::UnitMath& unitMath) {
  const auto take = [this](std::string_view spelling) { isOperator_[byteAt(spelling, 0)] = true; };
  for (const auto& entry : unitMath.getUnaryOperatorMap().spellings()) take(entry.first);
  for (const auto& entry : unitMath.getBinaryOperatorMap().spellings()) take(entry.first);
  take("(");
  take(")");
}

bool OperatorSearch::isAtStart(std::string_view rest) {
  dropPassed(rest);
  if (count_ == 0 && !foundAll_) findNext(rest);
  return count_ > 0 && found_[0] == rest.size();
}

Units::LiteralEnds OperatorSearch::findEnds(std::string_view rest) {
  dropPassed(rest);
  while (count_ < maxEnds && !foundAll_) findNext(rest);
  Units::LiteralEnds all;
  for (; all.count < count_; ++all.count) all.ends[all.count] = rest.size() - found_[all.count];
  if (foundAll_) all.ends[all.count++] = rest.size();  // then count_ < maxEnds
  return all;
}

void OperatorSearch::restart() {
  count_ = 0;
  foundAll_ = false;
}

void OperatorSearch::dropPassed(std::string_view rest) {
  std::size_t passed = 0;
  while (passed < count_ && found_[passed] > rest.size()) ++passed;
  if (passed == 0) return;
  std::copy(found_.begin() + passed, found_.begin() + count_, found_.begin());
  count_ -= passed;
}

void OperatorSearch::findNext(std::string_view rest) {
  std::size_t position = count_ == 0 ? 0 : rest.size() - found_[count_ - 1] + 1;
  for (; position < rest.size(); ++position) {
    if (!isOperator_[byteAt(rest, position)]) continue;
    found_[count_++] = rest.size() - position;
    return;
  }
  foundAll_ = true;
}
