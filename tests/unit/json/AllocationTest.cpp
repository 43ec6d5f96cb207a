#include "tests/support/FailingAllocations.h"
#include "tests/unit/json/TextExceptions.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace {

TEST(Allocation, LeavesAnObjectThatCanGrowAgain) {
  // Short names need no memory: what fails is the object's longer list of members.
  JSON root = JSON::makeDocument();
  root.setMember(root, "first", JSON(0));
  bool threw = false;
  for (int member = 1; !threw; ++member) {
    const std::string key = "m" + std::to_string(member);
    JSON value(member);
    heap::fail(0, true);
    try {
      root.setMember(root, key, std::move(value));
    } catch (const std::bad_alloc&) {
      threw = true;
    }
    heap::succeed();
  }
  EXPECT_EQ(root.toString(), "{}");
  for (int member = 0; member < 100; ++member) root.setMember(root, "m", JSON(member));
  EXPECT_EQ(root.getStringIntMap(), (std::map<std::string, int>{{"m", 99}}));
}

}  // namespace
