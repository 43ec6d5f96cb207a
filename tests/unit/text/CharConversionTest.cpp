#include "text/CharConversion.h"

#include "tests/support/Bits.h"
#include "tests/support/Random.h"
#include "text/ShortNumber.h"

#include <gtest/gtest.h>

#include <cfloat>
#include <charconv>
#include <cmath>
#include <limits>
#include <sstream>
#include <string>

#if defined(__cpp_lib_to_chars)

namespace Units {
namespace {

/// Finite and without a sign, of any exponent.
double randomDouble(Random& random) {
  const double value = std::fabs(random.anyDouble());
  return std::isfinite(value) ? value : 0.5;
}

void expectSameReading(const std::string& text) {
  double value = 0.0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  const LeadingNumber read = byCLibrary::readDecimal(text);
  ASSERT_EQ(read.length, static_cast<std::size_t>(end - text.data())) << text;
  if (error == std::errc::result_out_of_range)
    ASSERT_TRUE(read.value == 0.0 || std::isinf(read.value)) << text;
  else
    ASSERT_EQ(bitsOf(read.value), bitsOf(value)) << text;
}

void expectSameWriting(double value, int places) {
  char digits[600];
  const auto end =
      std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, places).ptr;
  std::string written = "=";
  byCLibrary::appendFixed(written, value, static_cast<unsigned char>(places));
  ASSERT_EQ(written, "=" + std::string(digits, end));
}

TEST(CharConversion, ReadsAsTheStandardLibraryDoes) {
  expectSameReading("");
  std::istringstream texts(
      ". x e5 .e5 1. .5 1.e2x 1e 1e+ 1E+2 1e-2- 1..2 00.10 0e9 0.0 9007199254740993 1e23 "
      "4.9e-324 2.4703282292062328e-324 2.2250738585072011e-308 1.7976931348623158e308 "
      "1.7976931348623159e308 1e309 1e-324 123456789012345678901234567890e-400 "
      "1e400000000000000000000");
  for (std::string text; texts >> text;) expectSameReading(text);

  Random random(1);
  for (int count = 0; count < 20000; ++count) {
    char text[40];
    const auto end = std::to_chars(text, text + sizeof text, randomDouble(random),
                                   std::chars_format::scientific, count % 20);
    expectSameReading(std::string(text, end.ptr));
  }
}

// As long as they get, and what differs from them in a digit far behind.
TEST(CharConversion, RoundsWhatLiesHalfwayBetweenTwoDoubles) {
  if (std::numeric_limits<long double>::digits < 64) GTEST_SKIP() << "No type holds such a number.";
  Random random(1);
  for (int count = 0; count < 500; ++count) {
    double below = count == 0 ? DBL_MAX : randomDouble(random);
    if (count % 4 == 1) below = std::ldexp(static_cast<double>(random.bits() >> 40), -1074);
    const long double step = std::ldexp(1.0L, std::max(std::ilogb(below) - 52, -1074));
    char text[1300];
    std::snprintf(text, sizeof text, "%.1100Lf", below + step / 2);
    const std::string halfway = text;
    expectSameReading(halfway);
    expectSameReading(halfway + std::string(1000, '0') + "1");
    expectSameReading(halfway.substr(0, halfway.find_last_not_of('0')));
  }
}

TEST(CharConversion, WritesAsTheStandardLibraryDoes) {
  Random random(1);
  const double infinity = std::numeric_limits<double>::infinity();
  for (const double value : {0.0, 0.5, 1.5, 2.5, 0.125, 1e15, 1e22, 1e23, 999.9995, 5e-324, DBL_MAX,
                             infinity, std::nan("")})
    for (const int places : {0, 1, 2, 3, 12, 255}) expectSameWriting(value, places);
  for (const double value : {0.0, -0.0, 0.5, -1e15, 123456789012345678.0, 1e-5, 1.5e-300, -DBL_MAX,
                             infinity, -infinity, std::nan("")})
    EXPECT_EQ(byCLibrary::shortNumber(value), shortNumber(value));
  for (int count = 0; count < 20000; ++count) {
    expectSameWriting(randomDouble(random), count % 256);
    expectSameWriting(static_cast<double>(random.bits() >> 20) / 4096.0, count % 13);
    const double any = random.anyDouble();
    ASSERT_EQ(byCLibrary::shortNumber(any), shortNumber(any));
  }
}

}  // namespace
}  // namespace Units

#endif
