#include "tests/support/Messages.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace {

TEST(MessageOf, IsTheTextOfExactlyThatClass) {
  int runs = 0;
  const auto refuse = [&] {
    ++runs;
    throw std::logic_error("no");
  };
  EXPECT_EQ(messageOf<std::logic_error>(refuse), "no");
  EXPECT_EQ(runs, 1);
}

TEST(MessageOf, FailsForAnotherClassAndForNone) {
  EXPECT_NONFATAL_FAILURE(messageOf<std::logic_error>([] { throw std::out_of_range("derived"); }),
                          "saying: derived");
  EXPECT_NONFATAL_FAILURE(messageOf<std::out_of_range>([] { throw std::logic_error("base"); }),
                          "saying: base");
  EXPECT_NONFATAL_FAILURE(messageOf<std::logic_error>([] { throw 1; }), "no std::exception");
  EXPECT_NONFATAL_FAILURE(messageOf<std::logic_error>([] {}), "nothing was thrown");
}

}  // namespace
