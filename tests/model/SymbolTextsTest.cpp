#include "model/SymbolTexts.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <utility>

namespace Units {
namespace {

using Random = std::mt19937_64;

std::string anyText(Random& random, std::size_t maximumPieces) {
  const char* const pieces[] = {"a", "a", "b", "m", "/", " ", "^2", "\xC2\xB0", "\xCE", "Z", "-"};
  std::string text;
  for (auto count = random() % (maximumPieces + 1); count > 0; --count)
    text += pieces[random() % std::size(pieces)];
  return text;
}

Symbol anySymbol(Random& random) {
  std::string typeId = std::to_string(random() % 1000);
  const Unit unit("unit", "unit", System::Metric, PrimitiveUnitComponent());
  const Placement placement = random() % 2 == 0 ? Placement::Prefix : Placement::Suffix;
  if (random() % 4 != 0) return {typeId, unit, PrefixOrSuffix(anyText(random, 4), placement, true)};
  for (const std::string_view key : specialSymbolKeys)
    if (random() % 3 == 0) typeId += key;
  return {typeId, unit, std::nullopt};
}

/// The slow and obvious way: a walk over all symbols in registry order.
template <class Fits>
const Symbol* longest(const RecordMap<Symbol>& symbols, const Fits& fits) {
  const Symbol* best = nullptr;
  std::size_t bestLength = 0;
  for (const auto& [typeId, symbol] : symbols) {
    const auto decoration = symbol.getPrefixOrSuffix();
    if (!decoration || !fits(*decoration)) continue;
    if (decoration->getText().size() <= bestLength) continue;
    best = &symbol;
    bestLength = decoration->getText().size();
  }
  return best;
}

bool beginsWith(const std::string& text, const std::string& word) {
  return text.compare(0, word.size(), word) == 0 &&
         (text.size() == word.size() ||
          std::string("abmZ").find(text[word.size()]) == std::string::npos);
}

const Symbol* firstWithKey(const RecordMap<Symbol>& symbols, std::string_view key) {
  for (const auto& [typeId, symbol] : symbols)
    if (!symbol.getPrefixOrSuffix() && typeId.find(key) != std::string::npos) return &symbol;
  return nullptr;
}

TEST(SymbolTexts, FindWhatAWalkOverAllSymbolsFinds) {
  Random random(4);
  for (int round = 0; round < 1000; ++round) {
    RecordMap<Symbol> symbols;
    SymbolTexts texts;
    for (auto batches = random() % 4; batches > 0; --batches) {
      RecordMap<Symbol> batch;
      for (auto count = random() % 12; count > 0; --count) {
        const Symbol symbol = anySymbol(random);
        if (symbols.count(symbol.getTypeId()) == 0) batch.emplace(symbol.getTypeId(), symbol);
      }
      SymbolTexts more(batch);
      symbols.merge(batch);
      texts.merge(std::move(more));
    }
    for (std::size_t form = 0; form < specialSymbolKeys.size(); ++form)
      EXPECT_EQ(texts.composite(static_cast<CompositeForm>(form)),
                firstWithKey(symbols, specialSymbolKeys[form]));
    for (int probe = 0; probe < 50; ++probe) {
      const std::string text = anyText(random, 6);
      EXPECT_EQ(texts.longestAtStart(text, std::nullopt), longest(symbols, [&](const auto& shown) {
                  return beginsWith(text, shown.getText());
                }));
      for (const Placement placement : {Placement::Prefix, Placement::Suffix})
        EXPECT_EQ(texts.longestAtStart(text, placement),
                  longest(symbols,
                          [&](const auto& shown) {
                            return shown.getPlacement() == placement &&
                                   beginsWith(text, shown.getText());
                          }))
            << text;
      EXPECT_EQ(texts.withText(text),
                longest(symbols, [&](const auto& shown) { return shown.getText() == text; }));
    }
  }
}

}  // namespace
}  // namespace Units
