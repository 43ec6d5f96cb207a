#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "TrelvonUnits/Limits.h"
#include "tests/formula/FormulaSample.h"
#include "tests/support/Messages.h"
#include "tests/support/SmallStack.h"

namespace {

std::string repeated(const std::string& text, int count) {
  std::string all;
  for (int made = 0; made < count; ++made) all += text;
  return all;
}

struct Deep {
  const char* before;
  const char* middle;
  const char* after;
  const char* outcome;
};

constexpr int levels = smallStackBytes > 128 * 1024 ? 100000 : 1000000;  // the slow builds do fewer

// All levels are read, evaluated and taken apart, also where reading or evaluating ends halfway.
TEST(DeepFormulas, NeedNoStack) {
  const Sample sample;
  const auto resolver = [](const std::string& name) {
    return name == "x" ? "0" : rejectIdentifier(name);
  };
  for (const Deep& row : std::vector<Deep>{
           {"(", "1", ")", "1"},
           {"-", "(1)", "", "1"},
           {"abs(", "-1", ")", "1"},
           {"", "pi()", "^pi()", "no value"},
           {"", "pi()", "-pi()*0", "3.14159265358979"},
           {"pi()*(", "0", ")", "0"},
           {"x-", "1", "", "-1"},
           {"", "(1)", " ft", "Unit symbol may be applied only to a unitless expression."},
           {"$(", "1", ")", "Unit symbol may be applied only to a unitless expression."},
           {"((", "1", ")", "no formula"},
           {"(", "1", "))", "no formula"},
           {"abs(", "y", ")", "Unrecognized identifier: y."},
           {"(pi()*", "1/0", ")", "no value"},
           {"(pi()*", "sqrt()", ")", "Expected one input to function call."},
           {"", "1", " ", "1"}}) {
    const std::string formula =
        repeated(row.before, levels) + row.middle + repeated(row.after, levels);
    onSmallStack([&] {
      EXPECT_EQ(sample.outcome(formula, resolver), row.outcome)
          << row.before << row.middle << row.after;
    });
  }
}

TEST(Resolvers, AreBoundedInDepth) {
  const Sample sample;
  int asked = 0;
  const auto circle = [&](const std::string& name) { return ++asked, name == "x" ? "y" : "x"; };
  EXPECT_EQ(sample.outcome("x", std::ref(circle)), "Variables are nested too deeply.");
  EXPECT_EQ(asked, Units::maximumSubstitutionDepth);

  // Texts side by side do not nest, however deep each of them goes.
  const auto chain = [](const std::string& name) {
    const int left = std::stoi(name.substr(1));
    return left == 1 ? std::string("1") : "n" + std::to_string(left - 1);
  };
  EXPECT_EQ(sample.outcome("n1000+n1000*n1000", chain), "2");
  EXPECT_EQ(sample.outcome("n2+n1001", chain), "Variables are nested too deeply.");
}

TEST(Resolvers, AreBoundedInNumber) {
  const Sample sample;
  EXPECT_EQ(Units::maximumSubstitutions, 10000000);
  int asked = 0;
  FormulaTokenizer tokenizer(
      "a-b-c-d-e-f", sample.texts(), sample.engine,
      [&](const std::string&) { return ++asked, "1"; }, 5);
  EXPECT_EQ(messageOf<Units::ParseException>([&] {
              for (FormulaToken token; tokenizer.nextToken(token);) continue;
            }),
            "Too many variables.");
  EXPECT_EQ(asked, 5);
}

}  // namespace
