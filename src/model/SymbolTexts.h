#pragma once

#include "model/CompositeForms.h"
#include "model/RecordStore.h"
#include "model/TextTree.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace Units {

/// Symbols by what they show: an index beside a symbol registry, so that reading a text never walks
/// over all symbols. It points at the records, which must stay where they are.
///
/// Where several symbols qualify, the first in registry order (by type id) is the one found.
class SymbolTexts {
 public:
  SymbolTexts() = default;

  /// The index of all symbols of a store.
  explicit SymbolTexts(const RecordStore<Symbol>& symbols);

  // An index is never copied: a copy would point at the records of the other's owner.
  SymbolTexts(SymbolTexts&&) = default;
  SymbolTexts& operator=(SymbolTexts&&) = default;

  /// Takes in the symbols of another index, which is left empty. Neither allocates nor throws.
  void merge(SymbolTexts&& other) noexcept;

  /// The symbol with the longest non-empty text that `text` begins with, of the placement if one is
  /// asked for; null if none. A text counts only where `text` ends after it or goes on with
  /// something else than a letter of the classic locale.
  const Symbol* longestAtStart(std::string_view text, std::optional<Placement> placement) const;

  /// The symbol, of either placement, that shows exactly `text`; null if none.
  const Symbol* withText(std::string_view text) const;

  /// The symbol without prefix or suffix whose type id contains the form's key; null if none.
  const Symbol* composite(CompositeForm form) const;

 private:
  using Texts = TextTree<const Symbol*>;  // by views of the records' texts

  void add(const Symbol& symbol);

  std::array<Texts, 2> texts_;  // by placement
  std::array<const Symbol*, specialSymbolKeys.size()> composites_ = {};
};

}  // namespace Units
