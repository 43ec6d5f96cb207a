#include "model/SymbolTexts.h"

#include "model/Characters.h"
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

std::size_t firstByte(std::string_view text) { return static_cast<unsigned char>(text.front()); }

}  // namespace

SymbolTexts::Key::Key(std::string_view shown) : text(shown) {
  for (std::size_t i = 0; i < sizeof head; ++i)
    head = head << 8 | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0u);
}

bool SymbolTexts::Key::operator<(const Key& other) const {
  return head != other.head ? head < other.head : text < other.text;
}

/// The greatest key that is not above `text` is the one looked for, or shares with `text` a
/// beginning that is no shorter than that one: so the search goes on with that beginning alone.
const Symbol* SymbolTexts::Texts::longestAtStart(std::string_view text) const {
  if (text.empty() || !firstBytes[firstByte(text)]) return nullptr;
  std::string_view beginning = text;
  while (true) {
    const auto above = entries.upper_bound(Key(beginning));
    if (above == entries.begin()) return nullptr;
    const auto& [key, symbol] = *std::prev(above);
    const std::size_t length = key.text.size();
    const std::size_t common = commonLength(key.text, beginning);
    if (common < length) {
      beginning = beginning.substr(0, common);
    } else if (length < text.size() && isLetter(text[length])) {
      beginning = beginning.substr(0, length - 1);
    } else {
      return symbol;
    }
  }
}

SymbolTexts::SymbolTexts(const RecordMap<Symbol>& symbols) {
  for (const auto& [typeId, symbol] : symbols) add(symbol);
}

void SymbolTexts::add(const Symbol& symbol) {
  if (const PrefixOrSuffix* const decoration = RecordAccess::prefixOrSuffix(symbol)) {
    const std::string_view text = RecordAccess::text(*decoration);
    if (text.empty()) return;
    Texts& texts = texts_[indexOf(decoration->getPlacement())];
    const Symbol*& entry = texts.entries[Key(text)];
    entry = earlier(entry, &symbol);
    texts.firstBytes.set(firstByte(text));
    return;
  }
  for (std::size_t form = 0; form < composites_.size(); ++form)
    if (RecordAccess::typeId(symbol).find(specialSymbolKeys[form]) != std::string::npos)
      composites_[form] = earlier(composites_[form], &symbol);
}

void SymbolTexts::merge(SymbolTexts&& other) noexcept {
  for (std::size_t placement = 0; placement < texts_.size(); ++placement) {
    Texts& texts = texts_[placement];
    Texts& added = other.texts_[placement];
    texts.firstBytes |= added.firstBytes;
    texts.entries.merge(added.entries);
    // What stayed behind shows a text that is here already.
    for (const auto& [key, symbol] : added.entries) {
      const Symbol*& entry = texts.entries.find(key)->second;
      entry = earlier(entry, symbol);
    }
    added.entries.clear();
    added.firstBytes.reset();
  }
  for (std::size_t form = 0; form < composites_.size(); ++form) {
    composites_[form] = earlier(composites_[form], other.composites_[form]);
    other.composites_[form] = nullptr;
  }
}

const Symbol* SymbolTexts::longestAtStart(std::string_view text,
                                          std::optional<Placement> placement) const {
  if (placement) return texts_[indexOf(*placement)].longestAtStart(text);
  const Symbol* const prefix = texts_[0].longestAtStart(text);
  const Symbol* const suffix = texts_[1].longestAtStart(text);
  if (!prefix || !suffix) return prefix ? prefix : suffix;
  const std::size_t prefixLength = textOf(*prefix).size();
  const std::size_t suffixLength = textOf(*suffix).size();
  if (prefixLength != suffixLength) return prefixLength > suffixLength ? prefix : suffix;
  return earlier(prefix, suffix);
}

const Symbol* SymbolTexts::withText(std::string_view text) const {
  const Symbol* found = nullptr;
  for (const Texts& texts : texts_) {
    const auto entry = texts.entries.find(Key(text));
    if (entry != texts.entries.end()) found = earlier(found, entry->second);
  }
  return found;
}

const Symbol* SymbolTexts::composite(CompositeForm form) const {
  return composites_[static_cast<std::size_t>(form)];
}

}  // namespace Units
