#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace Units {

/// A text for a loose comparison: in lower case, without spaces, hyphens and underscores. A text
/// that consists only of these stays as it is. Short texts need no allocation.
class FoldedText {
 public:
  explicit FoldedText(std::string_view text);
  FoldedText(const FoldedText&) = delete;
  FoldedText& operator=(const FoldedText&) = delete;

  std::string_view view() const { return view_; }

 private:
  std::array<char, 64> short_;
  std::string long_;
  std::string_view view_;
};

}  // namespace Units
