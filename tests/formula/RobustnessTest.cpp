#include <gtest/gtest.h>

#include <functional>
#include <string>

#include "TrelvonUnits/Limits.h"
#include "tests/formula/FormulaSample.h"
#include "tests/support/Messages.h"

namespace {

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
