#include "formula/OperatorSearch.h"

#include <algorithm>

namespace {

std::size_t byteAt(std::string_view text, std::size_t position) {
  return static_cast<unsigned char>(text[position]);
}

template <class Table>
std::size_t longestSpelling(const Table& table, std::string_view text) {
  std::size_t longest = 0;
  for (const auto& entry : table.spellings()) {
    const std::string& spelling = entry.first;
    if (text.substr(0, spelling.size()) == spelling) longest = std::max(longest, spelling.size());
  }
  return longest;
}

}  // namespace

OperatorSearch::OperatorSearch(const Units::UnitMath& unitMath) : unitMath_(unitMath) {
  const auto take = [this](const std::string& spelling) {
    Begins& begins = begins_[byteAt(spelling, 0)];
    begins = std::max(begins, spelling.size() > 1 ? Begins::Longer : Begins::Byte);
  };
  for (const auto& entry : unitMath.getUnaryOperatorMap().spellings()) take(entry.first);
  for (const auto& entry : unitMath.getBinaryOperatorMap().spellings()) take(entry.first);
  take("(");
  take(")");
}

std::size_t OperatorSearch::lengthAtStart(std::string_view rest) {
  dropPassed(rest);
  if (count_ == 0 && !foundAll_) findNext(rest);
  return count_ > 0 && found_[0].fromEnd == rest.size() ? found_[0].length : 0;
}

Units::LiteralEnds OperatorSearch::findEnds(std::string_view rest) {
  dropPassed(rest);
  while (count_ < reach && !foundAll_) findNext(rest);
  Units::LiteralEnds all;
  for (; all.count < count_; ++all.count)
    all.ends[all.count] = rest.size() - found_[all.count].fromEnd;
  if (foundAll_ && all.count < all.ends.size()) all.ends[all.count++] = rest.size();
  return all;
}

void OperatorSearch::restart() {
  count_ = 0;
  foundAll_ = false;
}

void OperatorSearch::dropPassed(std::string_view rest) {
  std::size_t passed = 0;
  while (passed < count_ && found_[passed].fromEnd > rest.size()) ++passed;
  if (passed == 0) return;
  // A symbol that holds operators may end inside one.
  if (found_[passed - 1].fromEnd - found_[passed - 1].length < rest.size()) return restart();
  std::copy(found_.begin() + passed, found_.begin() + count_, found_.begin());
  count_ -= passed;
}

void OperatorSearch::findNext(std::string_view rest) {
  std::size_t position =
      count_ == 0 ? 0 : rest.size() - found_[count_ - 1].fromEnd + found_[count_ - 1].length;
  for (; position < rest.size(); ++position) {
    if (begins_[byteAt(rest, position)] == Begins::None) continue;
    const std::size_t length = lengthAt(rest, position);
    if (length == 0) continue;
    found_[count_++] = {rest.size() - position, length};
    return;
  }
  foundAll_ = true;
}

/// The length of the longest operator or parenthesis at a position where one may begin; 0 if there
/// is none.
std::size_t OperatorSearch::lengthAt(std::string_view text, std::size_t position) const {
  if (begins_[byteAt(text, position)] == Begins::Byte) return 1;
  const std::string_view here = text.substr(position);
  const std::size_t longest = std::max(longestSpelling(unitMath_.getUnaryOperatorMap(), here),
                                       longestSpelling(unitMath_.getBinaryOperatorMap(), here));
  if (longest != 0) return longest;
  return here.front() == '(' || here.front() == ')' ? 1 : 0;
}
