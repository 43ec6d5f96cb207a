#include "text/FixedPointNumberRenderer.h"
#include "text/FractionalNumberRenderer.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <limits>

namespace Units {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

/// The digits, after a minus sign if the rounded value is below zero.
std::string render(const INumberRenderer& renderer, double value) {
  std::string text = "digits: ";
  bool negative = value > 0.0;  // must be set in any case
  renderer.render(text, value, negative);
  return (negative ? "-" : "") + text.substr(8);
}

TEST(FixedPointNumberRenderer, RoundsAndTrims) {
  const struct {
    double value;
    unsigned char places;
    const char* text;
    const char* trimmed;
  } rows[] = {
      {1.005, 2, "1.01", "1.01"},
      {5.0, 3, "5.000", "5"},
      {12.5, 2, "12.50", "12.5"},
      {100.0, 0, "100", "100"},
      {100.0, 1, "100.0", "100"},
      {2.5, 0, "3", "3"},
      {-2.5, 0, "-3", "-3"},
      {-0.004, 2, "0.00", "0"},
      {-0.006, 2, "-0.01", "-0.01"},
      {-0.0, 1, "0.0", "0"},
      {0.0, 0, "0", "0"},
      {5e-324, 12, "0.000000000000", "0"},
      {0.4999999985, 0, "0", "0"},
      {0.4999999995, 0, "1", "1"},  // less than a billionth short of a half
      {18446744073709551616.0, 1, "18446744073709551616.0", "18446744073709551616"},
      {1e22, 0, "10000000000000000000000", "10000000000000000000000"},
      {1e308, 12, "inf", "inf"},  // more steps than a double counts
      {-infinity, 2, "-inf", "-inf"},
      {notANumber, 2, "nan", "nan"},
      {-notANumber, 0, "nan", "nan"},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(render(FixedPointNumberRenderer(row.places, false), row.value), row.text);
    EXPECT_EQ(render(FixedPointNumberRenderer(row.places, true), row.value), row.trimmed);
  }
  EXPECT_EQ(render(FixedPointNumberRenderer(0, false), DBL_MAX).size(), 309u);
}

TEST(FractionalNumberRenderer, ReducesFractions) {
  const struct {
    double value;
    unsigned char precision;
    const char* text;
  } rows[] = {
      {1.5, 1, "1 1/2"},
      {0.75, 2, "3/4"},
      {0.3, 3, "1/4"},
      {2.0, 9, "2"},
      {0.0, 0, "0"},
      {-1.25, 2, "-1 1/4"},
      {0.999, 3, "1"},
      {-0.01, 2, "0"},
      {-0.0, 9, "0"},
      {1.0 / 512.0, 9, "1/512"},
      {7.0 + 511.0 / 512.0, 9, "7 511/512"},
      {4194303.998046875, 9, "4194303 511/512"},
      {9223372036854775808.0, 9, "9223372036854775808"},
      {18446744073709551616.0, 0, "18446744073709551616"},
      {-1e25, 4, "-10000000000000000905969664"},
      {infinity, 3, "inf"},
      {-infinity, 0, "-inf"},
      {-notANumber, 9, "nan"},
  };
  for (const auto& row : rows)
    EXPECT_EQ(render(FractionalNumberRenderer(row.precision), row.value), row.text);
}

}  // namespace
}  // namespace Units
