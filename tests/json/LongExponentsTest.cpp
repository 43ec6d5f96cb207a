#include "json/LongExponents.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace {

TEST(LongExponents, AreBoundedWhereverTheyStand) {
  const std::pair<const char*, const char*> rows[] = {
      {"1e1234567890", "1e0999999999"},
      {"[1e-01000000000,2E+99999999999]", "[1e-00999999999,2E+00999999999]"},
      {"1e00123456789", "1e00123456789"},
      {"1e123456789 12345678901 -12345678901", "1e123456789 12345678901 -12345678901"},
      {"\"e1234567890\\\"e1234567890\\\\\"1e1234567890",
       "\"e1234567890\\\"e1234567890\\\\\"1e0999999999"},
      {"\\\"e1234567890\"e1234567890", "\\\"e1234567890\"e0999999999"}};
  for (const auto& [text, bounded] : rows)
    for (std::size_t place = 0; place < 11; ++place) {
      const std::string before(place, ' ');
      EXPECT_EQ(withBoundedExponents(before + text).value_or(before + text), before + bounded);
    }
  EXPECT_FALSE(
      withBoundedExponents("{\"id\":\"factor\",\"value\":1e308,\"n\":12345678901234567890}"));
}

}  // namespace
