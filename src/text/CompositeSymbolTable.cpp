#include "text/CompositeSymbolTable.h"

namespace Units {

const CompositeLayout* findCompositeLayout(std::string_view typeId) {
  for (std::size_t form = 0; form < specialSymbolKeys.size(); ++form)
    if (typeId.find(specialSymbolKeys[form]) != std::string_view::npos)
      return &compositeSymbolTable[form];
  return nullptr;
}

}  // namespace Units
