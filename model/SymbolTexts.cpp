#include "model/SymbolTexts.h"

#include "model/Letters.h"
#include "model/RecordAccess.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <string>

namespace Units {

namespace {

std::size_t indexOf(Placement placement) { return placement == Placement::Prefix ? 0 : 1; }

std::string_view textOf(const Symbol& symbol) {
  return RecordAccess::text(*RecordAccess::prefixOrSuffix(symbol));
}

/// The earlier of two symbols in registry order; either may be null.
const Symbol* earlier(const Symbol* a, const Symbol* b) {
  if (!a || !b) return a ? a : b;
  return *b < *a ? b : a;
}

std::size_t commonLength(std::string_view a, std::string_view b) {
  const std::size_t shorter = std::min(a.size(), b.size());
  return static_cast<std::size_t>(
      std::mismatch(a.begin(), a.begin() + static_cast<std::ptrdiff_t>(shorter), b.begin()).first -
      a.begin());
}

/// The entry with the longest key that `text` begins with and that no letter follows there.
///
/// The greatest key that is not above `text` is that entry, or shares with `text` a beginning that
/// is no shorter than the entry's key: so the search goes on with that beginning alone.
const Symbol* longestEntry(const std::map<std::string_view, const Symbol*>& entries,
                           std::string_view text) {
  std::string_view beginning = text;
  while (true) {
    const auto above = entries.upper_bound(beginning);
    if (above == entries.begin()) return nullptr;
    const auto& [key, symbol] = *std::prev(above);
    const std::size_t common = commonLength(key, beginning);
    if (common < key.size()) {
      beginning = beginning.substr(0, common);
    } else if (key.size() < text.size() && isLetter(text[key.size()])) {
      beginning = beginning.substr(0, key.size() - 1);
    } else {
      return symbol;
    }
  }
}

}  // namespace

SymbolTexts::SymbolTexts(const RecordMap<Symbol>& symbols) {
  for (const auto& [typeId, symbol] : symbols) add(symbol);
}

void SymbolTexts::add(const Symbol& symbol) {
  if (const PrefixOrSuffix* const decoration = RecordAccess::prefixOrSuffix(symbol)) {
    const std::string_view text = RecordAccess::text(*decoration);
    if (text.empty()) return;
    const Symbol*& entry = texts_[indexOf(decoration->getPlacement())][text];
    entry = earlier(entry, &symbol);
    return;
  }
  for (std::size_t form = 0; form < composites_.size(); ++form)
    if (RecordAccess::typeId(symbol).find(specialSymbolKeys[form]) != std::string::npos)
      composites_[form] = earlier(composites_[form], &symbol);
}

void SymbolTexts::merge(SymbolTexts&& other) noexcept {
  for (std::size_t placement = 0; placement < texts_.size(); ++placement) {
    texts_[placement].merge(other.texts_[placement]);
    // What stayed behind shows a text that is here already.
    for (const auto& [text, symbol] : other.texts_[placement]) {
      const Symbol*& entry = texts_[placement].find(text)->second;
      entry = earlier(entry, symbol);
    }
    other.texts_[placement].clear();
  }
  for (std::size_t form = 0; form < composites_.size(); ++form) {
    composites_[form] = earlier(composites_[form], other.composites_[form]);
    other.composites_[form] = nullptr;
  }
}

const Symbol* SymbolTexts::longestAtStart(std::string_view text,
                                          std::optional<Placement> placement) const {
  if (placement) return longestEntry(texts_[indexOf(*placement)], text);
  const Symbol* const prefix = longestEntry(texts_[0], text);
  const Symbol* const suffix = longestEntry(texts_[1], text);
  if (!prefix || !suffix) return prefix ? prefix : suffix;
  const std::size_t prefixLength = textOf(*prefix).size();
  const std::size_t suffixLength = textOf(*suffix).size();
  if (prefixLength != suffixLength) return prefixLength > suffixLength ? prefix : suffix;
  return earlier(prefix, suffix);
}

const Symbol* SymbolTexts::withText(std::string_view text) const {
  const Symbol* found = nullptr;
  for (const Texts& texts : texts_) {
    const auto entry = texts.find(text);
    if (entry != texts.end()) found = earlier(found, entry->second);
  }
  return found;
}

const Symbol* SymbolTexts::composite(CompositeForm form) const {
  return composites_[static_cast<std::size_t>(form)];
}

}  // namespace Units
