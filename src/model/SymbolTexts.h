#pragma once

#include "model/CompositeForms.h"
#include "model/RecordStore.h"
#include "model/TextTree.h"

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace Units {

/// An index of symbols by their display text, so that reading a text never iterates over all
/// symbols. It points to the records, which must not move.
///
/// If several symbols match, the first in registry order (by type id) wins.
class SymbolTexts {
 public:
  SymbolTexts() = default;

  /// The index of all symbols of a store.
  explicit SymbolTexts(const RecordStore<Symbol>& symbols);

  // Not copyable: a copy would point to records of another owner.
  SymbolTexts(SymbolTexts&&) = default;
  SymbolTexts& operator=(SymbolTexts&&) = default;

  /// Moves the symbols of another index to this one. Does not allocate or throw.
  void merge(SymbolTexts&& other) noexcept;

  /// Whether the text of any symbol of a placement has the first byte of `text`. Decides most
  /// searches quickly.
  bool anyBeginsAs(std::string_view text, Placement placement) const {
    return texts_[indexOf(placement)].anyBeginsAs(text);
  }

  /// The symbol with the longest non-empty text that `text` begins with, or null. Considers only
  /// the given placement, if any. The symbol's text must not be followed by a letter (of the C
  /// locale) in `text`.
  const Symbol* longestAtStart(std::string_view text, std::optional<Placement> placement) const;

  /// The symbol, of either placement, whose text is exactly `text`, or null.
  const Symbol* withText(std::string_view text) const;

  /// The symbol without prefix or suffix whose type id contains the form's key, or null.
  const Symbol* composite(CompositeForm form) const;

 private:
  using Texts = TextTree<const Symbol*>;  // keys are views of the records' texts

  static std::size_t indexOf(Placement placement) { return placement == Placement::Prefix ? 0 : 1; }

  void add(const Symbol& symbol);

  std::array<Texts, 2> texts_;  // by placement
  std::array<const Symbol*, specialSymbolKeys.size()> composites_ = {};
};

}  // namespace Units
