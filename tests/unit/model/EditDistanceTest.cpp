#include "model/EditDistance.h"

#include "tests/support/Random.h"

#include <gtest/gtest.h>

namespace Units {
namespace {

/// The whole table, cell by cell, for texts in which a byte is a code point.
std::size_t slowDistance(const std::string& a, const std::string& b) {
  std::vector<std::vector<std::size_t>> cells(a.size() + 1, std::vector<std::size_t>(b.size() + 1));
  for (std::size_t i = 0; i <= a.size(); ++i) {
    for (std::size_t j = 0; j <= b.size(); ++j) {
      std::size_t& cell = cells[i][j] = i + j;
      if (i == 0 || j == 0) continue;
      cell = std::min(
          {cells[i - 1][j] + 1, cells[i][j - 1] + 1, cells[i - 1][j - 1] + (a[i - 1] != b[j - 1])});
      if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
        cell = std::min(cell, cells[i - 2][j - 2] + 1);
    }
  }
  return cells[a.size()][b.size()];
}

TEST(EditDistance, IsThatOfTheWholeTableUpToTheBound) {
  Random random(1);
  std::size_t near = 0;
  for (int time = 0; time < 100000; ++time) {
    const std::string a = random.text(std::string("ab\x80"), 12);
    const std::string b = random.text(std::string("ab\x80"), 12);
    const std::size_t distance = slowDistance(a, b);
    const auto found = EditDistance(a).to(b);
    ASSERT_EQ(found.has_value(), distance <= std::min<std::size_t>(3, (a.size() + 1) / 3))
        << a << ' ' << b;
    if (!found) continue;
    ASSERT_EQ(found->distance, distance) << a << ' ' << b;
    ++near;
  }
  EXPECT_GT(near, 4000u);
}

TEST(EditDistance, CountsCodePointsOfWhateverBytes) {
  const std::string degree = "\xC2\xB0";
  const std::string emoji = "\xF0\x9F\x98\x80";
  const auto distance = [](const std::string& a, const std::string& b) {
    const auto found = EditDistance(a).to(b);
    return found ? static_cast<int>(found->distance) : -1;
  };
  EXPECT_EQ(distance(degree + "Cels", "cels" + emoji), 2);
  EXPECT_EQ(distance("ab" + degree, "a" + degree + "B"), 1);
  EXPECT_EQ(distance("ab" + degree, "ab" + emoji), 1);
  EXPECT_EQ(distance("", ""), 0);
  EXPECT_EQ(distance("", "a"), -1);
  // Bytes that are no UTF-8 count one by one: cut off, too long, a surrogate, beyond the last.
  for (const char* const bytes : {"\xE2\x84", "\xC1\x81", "\xE0\x81\x81", "\xED\xA0\x80",
                                  "\xF4\x90\x80\x80", "\xF0\x8F\xBF\xBF", "\xF0\x9F\x98"}) {
    const std::string text = bytes;
    EXPECT_EQ(distance("abcdefgh" + text, "abcdefgh"),
              text.size() > 3 ? -1 : static_cast<int>(text.size()));
    EXPECT_EQ(distance("abcdefgh" + text, "abcdefgh" + text.substr(1)), 1);
  }
}

TEST(NearestTexts, AreInOrderOfDistanceThenPrefixThenGiven) {
  const std::vector<std::string> candidates = {"motor", "gram", "meters", "metre", "METER", "mter"};
  using Texts = std::vector<std::string>;
  EXPECT_EQ(nearestTexts("meter", candidates, 9),
            (Texts{"METER", "meters", "metre", "mter", "motor"}));
  EXPECT_EQ(nearestTexts("metr", candidates, 2), (Texts{"metre", "METER"}));
  EXPECT_EQ(nearestTexts("x", candidates, 9), Texts());
  const std::string longest(EditDistance::longestText, 'x');
  EXPECT_EQ(nearestTexts(longest.substr(1), Texts{longest}, 9), Texts{longest});
  EXPECT_EQ(nearestTexts(longest, Texts{longest + "x"}, 9), Texts());
  EXPECT_EQ(nearestTexts(longest + "x", Texts{longest}, 9), Texts());
}

}  // namespace
}  // namespace Units
