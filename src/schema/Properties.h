#pragma once

#include "json/JSON.h"
#include "model/ShortList.h"

#include <algorithm>
#include <cstddef>
#include <set>
#include <string_view>

namespace Units {

/// Property objects of a schema, or their values, by id. Both are views into a document.
class Properties {
 public:
  struct Property {
    std::string_view id = {};
    JsonView value = {};
  };

  /// Returns false if there already is a property with that id.
  bool add(std::string_view id, JsonView value) {
    if (list_.size() < fewProperties ? find(id) != nullptr : !isNewAmongMany(id)) return false;
    list_.push_back({id, value});
    return true;
  }

  /// Null if there is none of that id.
  const Property* find(std::string_view id) const {
    const auto found = std::find_if(list_.begin(), list_.end(),
                                    [&](const Property& property) { return property.id == id; });
    return found == list_.end() ? nullptr : found;
  }

  /// In the order in which they were added.
  Property* begin() { return list_.begin(); }
  Property* end() { return list_.end(); }

 private:
  static constexpr std::size_t fewProperties = 8;  // tuning

  bool isNewAmongMany(std::string_view id) {
    if (ids_.empty())
      for (const Property& property : list_) ids_.insert(property.id);
    return ids_.insert(id).second;
  }

  ShortList<Property, fewProperties> list_;
  std::set<std::string_view> ids_;  // only of a long list
};

}  // namespace Units
