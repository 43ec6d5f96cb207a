/// Schema texts of all kinds, out of choices, that mostly refer to what they should.
#pragma once

#include <string>
#include <vector>

#include "tests/fuzz/Choices.h"

class RandomSchemas {
 public:
  explicit RandomSchemas(Choices& choices) : choices_(choices) {}

  std::string next() {
    const std::string id = std::to_string(choices_.below(20));
    const std::size_t kind = choices_.below(20);
    if (kind < 2) return remember(dimensions_, id), schema(id, "dimension", "");
    if (kind < 7) {
      const std::string parents = powers("parentFactors", factors_, 0);
      remember(factors_, id);
      return schema(id, "factor.derived", number("factor") + "," + parents);
    }
    if (kind == 7) return symbol(id);
    if (kind == 8)
      return schema(id, "quantity",
                    R"({"id":"name","value":"q"},{"id":"units","typedValue":[)" +
                        reference(units_) + "," + reference(units_) + "]}");
    return unit(id, kind);
  }

 private:
  using Ids = std::vector<std::string>;

  static void remember(Ids& ids, const std::string& id) { ids.push_back(id); }

  static std::string schema(const std::string& id, const std::string& kind,
                            const std::string& constants) {
    return R"({"typeid":")" + id + R"(","inherits":["vellamor.unit:)" + kind +
           R"(-1.0.0"],"constants":[)" + constants + "]}";
  }

  std::string number(const std::string& id) {
    static const char* const numbers[] = {"1", "2", "0.5", "-3.25", "1e300", "0.1", "0", "1e-30"};
    return R"({"id":")" + id + R"(","value":)" + choices_.oneOf(numbers) + "}";
  }

  std::string pick(const Ids& known) {
    const bool isKnown = !known.empty() && !choices_.oneIn(30);
    return isKnown ? choices_.oneOf(known) : std::to_string(choices_.below(20));
  }

  std::string reference(const Ids& known) { return R"({"typeid":")" + pick(known) + "\"}"; }

  std::string typed(const std::string& id, const Ids& known) {
    return R"({"id":")" + id + R"(","typedValue":)" + reference(known) + "}";
  }

  std::string powers(const std::string& id, const Ids& known, std::size_t least) {
    static const char* const exponents[] = {"1", "1", "1", "-1", "2", "-3", "2147483647"};
    std::string members;
    for (std::size_t count = least + choices_.below(3); count > 0; --count)
      members += (members.empty() ? "\"" : ",\"") + pick(known) + "\":" + choices_.oneOf(exponents);
    return R"({"id":")" + id + R"(","value":{)" + members + "}}";
  }

  std::string symbol(const std::string& id) {
    static const char* const texts[] = {"m", "", "m^2", "$", "\xC2\xB0", "in", "\xFF"};
    if (choices_.oneIn(2)) return schema(id + ":feetAndInches-1", "symbol", typed("unit", units_));
    return schema(id, "symbol.prefixOrSuffix",
                  typed("unit", units_) + R"(,{"id":"text","value":")" + choices_.oneOf(texts) +
                      R"("},{"id":"placement","value":"Prefix"},{"id":"space","value":true})");
  }

  std::string unit(const std::string& id, std::size_t kind) {
    const std::string named = R"({"id":"name","value":"u"},{"id":"unitSystem","value":"Metric"},)";
    if (kind == 9) {
      remember(units_, id);
      return schema(id, "unit.primitive.dimensional", named + typed("dimension", dimensions_));
    }
    if (kind == 10) {
      const std::string parent = typed("parentUnit", units_);
      if (choices_.oneIn(6)) remember(units_, id);  // seldom: no other unit may rest on it
      return schema(id, "unit.absolute", named + parent + "," + number("offset"));
    }
    if (kind == 11 || units_.empty()) {
      remember(units_, id);
      return schema(id, "unit.primitive", named.substr(0, named.size() - 1));
    }
    const std::string parents = powers("parentUnits", units_, 1);
    const std::string factors = powers("parentFactors", factors_, 0);
    remember(units_, id);
    return schema(id, "unit.derived", named + parents + "," + factors + "," + number("factor"));
  }

  Choices& choices_;
  Ids dimensions_, factors_, units_;
};
