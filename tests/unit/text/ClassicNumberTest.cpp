#include "text/ClassicNumber.h"

#include "tests/support/Bits.h"

#include <gtest/gtest.h>

#include <cfloat>

namespace Units {
namespace {

// Where glibc errs, so that the fuzz target has nothing to compare with.
TEST(ClassicNumber, RoundsSubnormalHexadecimals) {
  const struct {
    const char* text;
    double value;
    std::size_t length;
  } rows[] = {
      {"0x1p-1075", 0.0, 9},  // a tie, and zero is even
      {"0x1.8p-1074", 2 * DBL_TRUE_MIN, 11},
      {"0xa8c9487cc8752cp-1078", 0x0.a8c9487cc8753p-1022, 22},
      {"0x1.00000000000001p-1075", DBL_TRUE_MIN, 24},
      {"0x0.fp-1075", 0.0, 11},
      {"0x1p-1139", 0.0, 9},
  };
  for (const auto& row : rows) {
    const LeadingNumber read = readClassicDouble(row.text);
    EXPECT_EQ(bitsOf(read.value), bitsOf(row.value)) << row.text;
    EXPECT_EQ(read.length, row.length) << row.text;
  }
}

}  // namespace
}  // namespace Units
