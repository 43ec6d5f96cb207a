#pragma once

#include "reporting/LoadLints.h"

#include <TrelvonUnits/Symbol.h>

#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace Schemas {

/// Finds out how formulas of a loaded engine read the texts of its symbols.
class SymbolReader {
 public:
  explicit SymbolReader(const Units::UnitsEngine& engine);

  /// Of `7 T`, `7T`, `(3+4) T` and `1e-5 T`, where T is the symbol's text, the first that is not
  /// read as that number of the symbol's units; empty if all are.
  std::string unreadForm(const Units::Symbol& symbol) const;

  /// Whether formulas have a function with this name.
  bool isFunction(const std::string& name) const;

  /// The type ids of the symbols with a text, and those of their units.
  const std::map<std::string, std::string>& withText(const std::string& text) const;

 private:
  bool reads(const std::string& unit, const std::string& formula, double expected) const;

  const Units::UnitsEngine& engine_;
  const std::unique_ptr<Units::UnitsEngine> empty_;
  std::map<std::string, std::map<std::string, std::string>> byText_;
};

/// Finds the lints of one symbol.
/// @param add  takes the id of a finding, its sentence, its advice and a related symbol's type id.
using AddSymbolLint = std::function<void(std::string_view, std::string, std::string, std::string)>;
void lintSymbol(const Units::Symbol& symbol, const SymbolReader& reader,
                const std::set<std::string>& variableNames, const AddSymbolLint& add);

}  // namespace Schemas
