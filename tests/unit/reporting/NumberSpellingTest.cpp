#include "reporting/NumberSpelling.h"

#include "tests/support/Random.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>

namespace {

/// The advice on a number, or nothing if it is read right. What it says must be true.
std::string adviceOn(const std::string& written) {
  const double wanted = Schemas::nearestDouble(written);
  EXPECT_EQ(wanted, std::strtod(written.c_str(), nullptr)) << written;
  if (Schemas::numberAsRead(written) == wanted) return {};
  const std::string advice = Schemas::spellingAdvice(written);
  const std::string begin = "Write ";
  const std::string spelled = advice.substr(begin.size(), advice.size() - begin.size() - 1);
  if (advice.find(begin) == 0 && spelled.find(' ') == std::string::npos) {
    EXPECT_EQ(Schemas::numberAsRead(spelled), wanted) << written << ": " << advice;
  }
  return advice;
}

TEST(NumberSpelling, IsReadAsTheNearestDouble) {
  for (const auto& [written, advice] : std::initializer_list<std::pair<const char*, const char*>>{
           {"0.3048", ""},
           {"1.602176634e-19", "Write 1.60217663400e-19."},
           {"-160217.66340E-24", "Write -1.60217663400e-19."},
           {"1e-28", "Write 1.00e-28."}})
    EXPECT_EQ(adviceOn(written), advice) << written;
  EXPECT_EQ(Schemas::spellingAdvice("1.7976931348623159e308"), "Write a smaller number.");

  Random random(1);
  int inexact = 0, spelled = 0;
  for (int round = 0; round < 2000; ++round) {
    const double number = random.anyDouble();
    if (!std::isnormal(number)) continue;
    const std::string advice = adviceOn(Schemas::shortestSpelling(number));
    inexact += !advice.empty();
    spelled += advice.find("Write it") != 0 && !advice.empty();
  }
  EXPECT_GT(spelled, inexact * 9 / 10) << inexact;
}

TEST(NumberSpelling, IsShortForNumbersOfManyDigits) {
  const std::string digits = "1.0000000000000000000000000000000000000001e-28";
  EXPECT_EQ(adviceOn(digits), "Write 1.00e-28.");
}

}  // namespace
