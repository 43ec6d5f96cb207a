#pragma once

#include "reporting/DefinitionReader.h"
#include "reporting/TextPlace.h"

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace Schemas {

/// Where the references of one definition are in its text. Each is found fast, however many there
/// are.
class ReferencePlaces {
 public:
  explicit ReferencePlaces(const std::string& text) : places_(text) {}

  Extent at(const Reference& reference);

 private:
  /// The members or elements of a constant's value.
  struct Children {
    std::map<std::string_view, std::size_t> byName;  // the last of a name
    std::vector<std::size_t> byNumber;
  };

  const Children& childrenOf(const char* constant);

  const TextPlaces places_;
  std::map<std::string_view, Children> children_;
};

}  // namespace Schemas
