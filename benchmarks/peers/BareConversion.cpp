#include "benchmarks/peers/BareConversion.h"

#include "benchmarks/Catalog.h"
#include "benchmarks/peers/Pairs.h"

namespace peers {

namespace {

/// The common base unit for a unit: the first `from` unit of the pairs that it converts to.
const std::string& hubOf(const std::string& typeId) {
  for (const UnitPair& pair : mixedPairs())
    if (catalog().canConvert(typeId, pair.from)) return pair.from;
  return typeId;
}

Scales makeScales() {
  Scales scales;
  for (const auto& [typeId, record] : catalog().getUnits()) scales[typeId] = {1, 0};
  for (const UnitPair& pair : mixedPairs())
    for (const std::string& typeId : {pair.from, pair.to}) {
      const double zero = catalog().convert(0, typeId, hubOf(typeId));
      const double factor = catalog().convert(1, typeId, hubOf(typeId)) - zero;
      scales[typeId] = {factor, zero / factor};
    }
  return scales;
}

}  // namespace

const Scales& scalesOfPairs() {
  static const Scales scales = makeScales();
  return scales;
}

double bareConvert(double value, std::string from, std::string to) {
  return bareConvertByReference(value, from, to);
}

double bareConvertByReference(double value, const std::string& from, const std::string& to) {
  static const Scales& scales = scalesOfPairs();
  const Scale& fromScale = scales.find(from)->second;
  const Scale& toScale = scales.find(to)->second;
  return (fromScale.offset + value) * fromScale.factor / toScale.factor - toScale.offset;
}

}  // namespace peers
