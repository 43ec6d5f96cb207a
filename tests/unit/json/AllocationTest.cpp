#include "tests/support/FailingAllocations.h"
#include "tests/unit/json/TextExceptions.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace {

TEST(Allocation, FailsWritesWhole) {
  const std::string longText(70000, 'x');  // fills a chunk of the pool
  const auto build = [&] {
    JSON root = JSON::makeDocument();
    for (int member = 0; member < 20; ++member) root.setMember(root, longText, JSON(member));
    std::vector<JSON> items;
    for (int item = 0; item < 5; ++item) items.push_back(JSON::makeString(root, longText));
    root.setMember(root, "a", JSON::makeArray(root, std::move(items)));
    return root;
  };
  EXPECT_GT(failEachAllocation(build), 40);
  const JSON built = build();
  EXPECT_GT(failEachAllocation([&] { built.toString(); }), 3);
}

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
