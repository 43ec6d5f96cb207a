#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace Sql {

/// Remembers what was found for a text, for later rows. Forgets everything when it has become
/// large, and keeps nothing for long texts.
template <class Value>
class Cache {
 public:
  /// Null if nothing is kept for the text.
  const Value* find(const std::string& text) const {
    const auto found = values_.find(text);
    return found == values_.end() ? nullptr : &found->second;
  }

  void keep(const std::string& text, Value value) {
    if (text.size() > longest) return;
    if (values_.size() == most) values_.clear();
    values_.emplace(text, std::move(value));
  }

  void clear() { values_.clear(); }

 private:
  static constexpr std::size_t most = 1000, longest = 256;

  std::unordered_map<std::string, Value> values_;
};

}  // namespace Sql
