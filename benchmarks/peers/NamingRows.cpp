/// Units by what people call them.
#include "benchmarks/Catalog.h"
#include "benchmarks/peers/Turns.h"

#include <map>

namespace peers {

namespace {

using Texts = std::map<std::string, std::string>;

/// Every text that names a unit of the catalog, and the type id of one that it names.
Texts namingTexts() {
  Texts texts;
  const Units::UnitNames names(catalog());
  for (const Units::UnitName& name : names.completions("", std::string::npos))
    texts.emplace(name.getText(), name.getUnit().getTypeId());
  for (const auto& [typeId, record] : catalog().getUnits()) texts.emplace(typeId, typeId);
  return texts;
}

/// Keys in an order that is far from theirs, so that neither side profits from the last one.
std::vector<std::string> scattered(const Texts& texts) {
  std::multimap<std::size_t, std::string> order;
  for (const auto& [text, typeId] : texts) order.emplace(order.size() * 7919 % texts.size(), text);
  std::vector<std::string> all;
  for (const auto& [place, text] : order) all.push_back(text);
  return all;
}

Sides finding() {
  const Units::UnitNames names(catalog());
  const Texts texts = namingTexts();
  const std::vector<std::string> asked = scattered(texts);
  for (const std::string& text : asked) {
    bool isThere = false;
    for (const Units::UnitName& name : names.find(text))
      isThere = isThere || name.getUnit().getTypeId() == texts.at(text);
    check(isThere, text);
  }
  const auto pieces = static_cast<double>(asked.size());
  return {{[names, asked] {
             for (const std::string& text : asked) keep(names.find(text).data());
             return Leftover();
           },
           pieces},
          {[texts, asked] {
             for (const std::string& text : asked) keep(texts.find(text)->second.data());
             return Leftover();
           },
           pieces}};
}

}  // namespace

std::vector<Row> namingRows() {
  return {{"finding units by any of their texts", "`find` of a `std::map` with the same texts",
           Bound::AtMost, 2, 1.5, finding}};
}

}  // namespace peers
