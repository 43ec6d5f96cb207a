#include "text/ClassicNumber.h"

#include "tests/support/Bits.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <string>

namespace Units {
namespace {

TEST(ClassicNumber, ReadsDoublesAtTheirEdges) {
  const std::string zeros(400, '0');
  const struct {
    std::string text;
    double value;
    std::size_t length;
  } rows[] = {
      {"0x.p1", 0.0, 1},
      {"0xg", 0.0, 1},
      {"0x@", 0.0, 1},
      {"0xinf", 0.0, 1},
      {"0XF", 15.0, 3},
      {"0xf", 15.0, 3},
      {"0xA", 10.0, 3},
      {"0x1p+-5", 1.0, 3},
      {" \t\n\v\f\r+.5", 0.5, 9},
      {"\0165", 0.0, 0},  // what is beside the white space
      {"\b5", 0.0, 0},
      {std::string("1\0002", 3), 1.0, 1},
      {"0e99999999999999999999", 0.0, 22},
      {"1" + zeros + "e-400", 1.0, 406},
      {"1" + zeros + "e-800", 0.0, 406},
      {"0." + zeros + "1e401", 1.0, 407},
      {"0." + std::string(10000, '0') + "1e9000", 0.0, 10008},
      {"2.4703282292062327e-324", 0.0, 23},  // just below half of the smallest double
      {"2.4703282292062328e-324", DBL_TRUE_MIN, 23},
      {"0x1p99999999999999999999", HUGE_VAL, 24},
      {"0x1" + std::string(2000, '0') + "p-9100", 0.0, 2009},
      {"0x1" + std::string(2000, '0') + "p-6000", HUGE_VAL, 2009},
      {"1e999-", HUGE_VAL, 5},
      {"0x1p-1075", 0.0, 9},  // a tie, and zero is even
      {"0x1.8p-1074", 2 * DBL_TRUE_MIN, 11},
      {"0xa8c9487cc8752cp-1078", 0x0.a8c9487cc8753p-1022, 22},
      {"0x1" + std::string(40, '0') + "p-160", 1.0, 48},
      {"0x0." + std::string(40, '0') + "8p164", 8.0, 49},
      {"0x1.00000000000008", 1.0, 18},  // a tie
      {"0x1.00000000000008000000000000000001", 0x1.0000000000001p0, 36},
      {"0x1.00000000000018", 0x1.0000000000002p0, 18},
      {"0x1.fffffffffffff7p1023", DBL_MAX, 23},
      {"0x1.fffffffffffff8p1023", HUGE_VAL, 23},
      {"0x1.00000000000001p-1075", DBL_TRUE_MIN, 24},
      {"0x0.fp-1075", 0.0, 11},
      {"0x1p-1139", 0.0, 9},
      {"0x1..8p1", 1.0, 4},
      {"inf", 0.0, 0},
      {"-nan(5)", 0.0, 0},
  };
  for (const auto& row : rows) {
    const LeadingNumber read = readClassicDouble(row.text);
    EXPECT_EQ(bitsOf(read.value), bitsOf(row.value)) << row.text;
    EXPECT_EQ(read.length, row.length) << row.text;
  }
}

}  // namespace
}  // namespace Units
