#include "tests/unit/json/TextExceptions.h"

#include <gtest/gtest.h>

#include <cmath>
#include <stdexcept>
#include <utility>

namespace {

template <class... Items>
std::vector<JSON> listOf(Items&&... items) {
  std::vector<JSON> list;
  (list.push_back(std::forward<Items>(items)), ...);
  return list;
}

TEST(Writing, KeepsTheOrderOfMembersAndItems) {
  JSON root = JSON::makeDocument();
  EXPECT_EQ(root.toString(), "{}");
  root.setMember(root, "t", JSON::makeString(root, "x"));
  root.setMember(root, "i", JSON::makeArray(root, listOf(JSON::makeString(root, "y"))));
  EXPECT_EQ(root.getMember("i").getArray().front().getString(), "y");
  JSON inner = JSON::makeObject();
  std::string written;
  for (int member = 20; member > 0; --member) {  // more than an object has room for at first
    inner.setMember(root, "m" + std::to_string(member), JSON(member));
    written += ",\"m" + std::to_string(member) + "\":" + std::to_string(member);
  }
  root.setMember(root, "t", std::move(inner));
  EXPECT_EQ(root.toString(), "{\"t\":\"x\",\"i\":[\"y\"],\"t\":{" + written.substr(1) + "}}");
}

TEST(Writing, MovesValuesInAndLeavesThemNull) {
  JSON root = JSON::makeDocument();
  JSON object = JSON::makeObject();
  object.setMember(root, "i", JSON(-2147483647 - 1));
  std::vector<JSON> items = listOf(JSON(true), JSON(false), JSON(0.5), JSON(7), std::move(object));
  JSON array = JSON::makeArray(root, std::move(items));
  for (const JSON& item : items) EXPECT_EQ(item.toString(), "null");
  EXPECT_EQ(array.toString(), "[true,false,0.5,7,{\"i\":-2147483648}]");

  root.setMember(root, "a", std::move(array));
  EXPECT_EQ(array.toString(), "null");
  EXPECT_EQ(root.toString(), "{\"a\":[true,false,0.5,7,{\"i\":-2147483648}]}");
}

TEST(Writing, ShowsDoublesInTheirShortestForm) {
  const std::pair<double, const char*> rows[] = {
      {-0.0, "-0.0"},
      {1.0, "1.0"},
      {0.3048, "0.3048"},
      {1.0 / 3.0, "0.3333333333333333"},
      {1e20, "100000000000000000000.0"},
      {1e21, "1e21"},
      {1e-6, "0.000001"},
      {1e-7, "1e-7"},
      {5e-324, "5e-324"},
      {-1.7976931348623157e308, "-1.7976931348623157e308"}};
  for (const auto& [value, text] : rows) EXPECT_EQ(JSON(value).toString(), text);
  EXPECT_THROW(JSON(HUGE_VAL).toString(), std::logic_error);
}

}  // namespace
