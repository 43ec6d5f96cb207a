#pragma once

#include "json/JSON.h"

#include <algorithm>
#include <cstddef>
#include <initializer_list>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace Schemas {

/// Makes the values of one JSON document.
class JsonMaker {
 public:
  using Member = std::pair<const char*, JSON>;

  /// The document's root, an empty object.
  JSON root = JSON::makeDocument();

  JSON text(const std::string& text) { return JSON::makeString(root, text); }

  /// Numbers that do not fit are the largest that does.
  static JSON number(std::size_t number) {
    constexpr std::size_t most = std::numeric_limits<int>::max();
    return JSON(static_cast<int>(std::min(number, most)));
  }

  template <class... Members>
  JSON object(Members... members) {
    JSON made = JSON::makeObject();
    (made.setMember(root, members.first, std::move(members.second)), ...);
    return made;
  }

  template <class Items, class Make>
  JSON array(const Items& items, const Make& make) {
    std::vector<JSON> made;
    for (const auto& item : items) made.push_back(make(item));
    return JSON::makeArray(root, std::move(made));
  }
};

}  // namespace Schemas
