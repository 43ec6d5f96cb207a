#include "formula/FormulaText.h"

#include <algorithm>
#include <utility>

void FormulaText::putInFront(std::string_view text) {
  if (freeSpace() < text.size()) makeRoom(text.size());
  char* const start = buffer_.get() + freeSpace() - text.size();
  std::copy(text.begin(), text.end(), start);
  rest_ = std::string_view(start, text.size() + rest_.size());
}

std::size_t FormulaText::freeSpace() const {
  return buffer_ ? static_cast<std::size_t>(rest_.data() - buffer_.get()) : 0;
}

void FormulaText::makeRoom(std::size_t length) {
  const std::size_t size = 2 * (length + rest_.size());  // tuning
  std::unique_ptr<char[]> larger(new char[size]);
  char* const start = larger.get() + size - rest_.size();
  std::copy(rest_.begin(), rest_.end(), start);
  rest_ = std::string_view(start, rest_.size());
  buffer_ = std::move(larger);
}
