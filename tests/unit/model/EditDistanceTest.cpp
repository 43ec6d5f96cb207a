#include "model/EditDistance.h"

#include "tests/support/Random.h"

#include <gtest/gtest.h>

namespace Units {
namespace {

using Texts = std::vector<std::string>;

/// The whole table, cell by cell, for texts in which a byte is a code point.
std::size_t slowDistance(const std::string& a, const std::string& b) {
  std::vector<std::vector<std::size_t>> cells(a.size() + 1, std::vector<std::size_t>(b.size() + 1));
  for (std::size_t i = 0; i <= a.size(); ++i)
    for (std::size_t j = 0; j <= b.size(); ++j) {
      std::size_t& cell = cells[i][j] = i + j;
      if (i == 0 || j == 0) continue;
      cell = std::min(
          {cells[i - 1][j] + 1, cells[i][j - 1] + 1, cells[i - 1][j - 1] + (a[i - 1] != b[j - 1])});
      if (i > 1 && j > 1 && a[i - 1] == b[j - 2] && a[i - 2] == b[j - 1])
        cell = std::min(cell, cells[i - 2][j - 2] + 1);
    }
  return cells.back().back();
}

TEST(EditDistance, IsThatOfTheWholeTableUpToTheBound) {
  Random random(1);
  for (int time = 0; time < 30000; ++time) {
    const std::string a = random.text(std::string("ab\x80"), 12);
    const std::string b = random.text(std::string("ab\x80"), 12);
    const auto found = EditDistance(a).to(b);
    const std::size_t distance = slowDistance(a, b),
                      bound = std::min<std::size_t>(3, (a.size() + 1) / 3);
    ASSERT_EQ(found ? found->distance : bound + 1, std::min(distance, bound + 1)) << a << ' ' << b;
  }
}

TEST(EditDistance, CountsCodePointsOfWhateverBytes) {
  EXPECT_EQ(EditDistance("ab\xC2\xB0").to("aB\xF0\x9F\x98\x80")->distance, 1u);
  // Bytes that are no UTF-8 count one by one: cut off, too long, a surrogate, beyond the last.
  for (const std::string bytes : {"\xE2\x84", "\xC1\x81", "\xE0\x81\x81", "\xED\xA0\x80",
                                  "\xF0\x9F\x98", "\xF4\x90\x80\x80", "\xF0\x8F\xBF\xBF"}) {
    const auto found = EditDistance("abcdefgh").to("abcdefgh" + bytes);
    EXPECT_EQ(found ? found->distance : 4, bytes.size());
  }
}

TEST(NearestTexts, AreInOrderOfDistanceThenPrefixThenGiven) {
  const Texts candidates = {"motor", "gram", "meters", "metre", "METER", "mter"};
  EXPECT_EQ(nearestTexts("meter", candidates, 9),
            (Texts{"METER", "meters", "metre", "mter", "motor"}));
  EXPECT_EQ(nearestTexts("metr", candidates, 2), (Texts{"metre", "METER"}));
  const std::string longest(EditDistance::longestText, 'x');
  EXPECT_EQ(nearestTexts(longest, Texts{longest + 'x', longest}, 9), Texts{longest});
  EXPECT_EQ(nearestTexts(longest + 'x', Texts{longest}, 9), Texts());
}

}  // namespace
}  // namespace Units
