#pragma once

#include <TrelvonUnits/trelvon.h>

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace Sql {

/// Finds symbols by their local ids and by the texts that they show.
class SymbolNames {
 public:
  explicit SymbolNames(const trelvon_engine* engine);

  /// The type ids that a text stands for: by local id if there are any, or else by text.
  std::vector<std::string> find(std::string_view text) const;

 private:
  using TypeIds = std::map<std::string, std::vector<std::string>, std::less<>>;

  TypeIds byLocalId_;
  TypeIds byText_;
};

}  // namespace Sql
