#include "model/SymbolTexts.h"

#include "model/Characters.h"
#include "model/RecordAccess.h"

#include <cstddef>
#include <string>

namespace Units {

namespace {

std::string_view textOf(const Symbol& symbol) {
  return RecordAccess::text(*RecordAccess::prefixOrSuffix(symbol));
}

/// The first of two symbols in registry order. Either may be null.
const Symbol* earlier(const Symbol* a, const Symbol* b) {
  if (!a || !b) return a ? a : b;
  return *b < *a ? b : a;
}

const Symbol* longestAmong(const TextTree<const Symbol*>& texts, std::string_view text) {
  const Symbol* const* const found = texts.findLongestPrefix(
      text, [&](std::size_t end) { return end == text.size() || !isLetter(text[end]); });
  return found ? *found : nullptr;
}

}  // namespace

SymbolTexts::SymbolTexts(const RecordStore<Symbol>& symbols) {
  for (const auto& [typeId, node] : symbols.nodes()) add(node.record);
}

void SymbolTexts::add(const Symbol& symbol) {
  if (const PrefixOrSuffix* const decoration = RecordAccess::prefixOrSuffix(symbol)) {
    const std::string_view text = RecordAccess::text(*decoration);
    if (text.empty()) return;
    const Symbol*& shown = texts_[indexOf(decoration->getPlacement())].insert(text, &symbol);
    shown = earlier(shown, &symbol);
    return;
  }
  for (std::size_t form = 0; form < composites_.size(); ++form)
    if (RecordAccess::typeId(symbol).find(specialSymbolKeys[form]) != std::string::npos)
      composites_[form] = earlier(composites_[form], &symbol);
}

void SymbolTexts::merge(SymbolTexts&& other) noexcept {
  for (std::size_t placement = 0; placement < texts_.size(); ++placement)
    texts_[placement].merge(other.texts_[placement], [](const Symbol*& ours, const Symbol* theirs) {
      ours = earlier(ours, theirs);
    });
  for (std::size_t form = 0; form < composites_.size(); ++form) {
    composites_[form] = earlier(composites_[form], other.composites_[form]);
    other.composites_[form] = nullptr;
  }
}

const Symbol* SymbolTexts::longestAtStart(std::string_view text,
                                          std::optional<Placement> placement) const {
  if (placement) return longestAmong(texts_[indexOf(*placement)], text);
  const Symbol* const prefix = longestAmong(texts_[0], text);
  const Symbol* const suffix = longestAmong(texts_[1], text);
  if (!prefix || !suffix) return prefix ? prefix : suffix;
  const std::size_t prefixLength = textOf(*prefix).size();
  const std::size_t suffixLength = textOf(*suffix).size();
  if (prefixLength != suffixLength) return prefixLength > suffixLength ? prefix : suffix;
  return earlier(prefix, suffix);
}

const Symbol* SymbolTexts::withText(std::string_view text) const {
  const Symbol* found = nullptr;
  for (const Texts& texts : texts_) {
    const Symbol* const* const shown = texts.find(text);
    if (shown) found = earlier(found, *shown);
  }
  return found;
}

const Symbol* SymbolTexts::composite(CompositeForm form) const {
  return composites_[static_cast<std::size_t>(form)];
}

}  // namespace Units
