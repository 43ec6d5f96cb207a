#include "text/LiteralReaders.h"

#include <gtest/gtest.h>

namespace Units {
namespace {

TEST(LiteralReaders, StripTheLongestWord) {
  const char* const refused = nullptr;
  const struct {
    const Words& words;
    const char* text;
    const char* rest;
  } rows[] = {
      {inchMarks, "  inches x", " x"}, {inchMarks, "inside", refused},
      {inchMarks, "in.side", "side"},  // its own last character is no letter
      {inchMarks, "in5", "5"},         {inchMarks, "in\xC3\xA9", "\xC3\xA9"},
      {inchMarks, "'''", "'"},         {inchMarks, "\tin", refused},
      {feetMarks, "ft.5", "5"},        {feetMarks, "ft,", ","},
      {degreeMark, "\xC2\xB0x", "x"},  {degreeMark, "\xC2", refused},
      {minus, "   ", refused},
  };
  for (const auto& row : rows) {
    std::string_view text = row.text;
    EXPECT_EQ(stripLeadingWord(text, row.words), row.rest != refused) << row.text;
    EXPECT_EQ(text, row.rest ? row.rest : row.text);
  }
}

TEST(LiteralReaders, ReadNumbersIntoASum) {
  const struct {
    bool (*read)(std::string_view&, double&);
    const char* text;
    double sum;
    double newSum;  // the same where the text is refused
    const char* rest;
  } rows[] = {
      {readWholeNumber, "  12.5", 1, 13, ".5"},
      {readWholeNumber, "2147483647", 0, 2147483647, ""},
      {readWholeNumber, "2147483648", 0, 2147483647, ""},
      {readWholeNumber, "99999999999999999999999 x", 0, 2147483647, " x"},
      {readWholeNumber, "-1", 5, 5, "-1"},
      {readWholeNumber, "+1", 5, 5, "+1"},
      {readWholeNumber, "\t1", 5, 5, "\t1"},
      {readWholeNumber, "   ", 5, 5, "   "},
      {readNumber, "  12.5e1x", 1, 126, "x"},
      {readNumber, " \t+5", 0, 5, ""},
      {readNumber, " -2 ", 3, 1, " "},
      {readNumber, " -4 ", 3, 3, " -4 "},
      {readNumber, "1e999 ", 3, 3, "1e999 "},
      {readNumber, "nan", 3, 3, "nan"},
      {readNumber, " x", 3, 3, " x"},
  };
  for (const auto& row : rows) {
    std::string_view text = row.text;
    double sum = row.sum;
    EXPECT_EQ(row.read(text, sum), row.newSum != row.sum) << row.text;
    EXPECT_EQ(sum, row.newSum) << row.text;
    EXPECT_EQ(text, row.rest);
  }
}

}  // namespace
}  // namespace Units
