#include "reporting/KnownDefinitions.h"

#include "model/RecordAccess.h"

namespace Schemas {

namespace {

template <class Ask>
bool stores(const Ask& ask) {
  try {
    ask();
    return true;
  } catch (const Units::UnrecognizedIdentifierException&) {
    return false;
  }
}

}  // namespace

std::optional<RecordKind> KnownDefinitions::kindInEngine(const std::string& typeId) const {
  bool isAbsolute = false;
  if (stores([&] { isAbsolute = Units::RecordAccess::absolute(engine_.getUnit(typeId)); }))
    return isAbsolute ? RecordKind::AbsoluteUnit : RecordKind::RelativeUnit;
  if (stores([&] { engine_.getFactor(typeId); })) return RecordKind::Factor;
  if (stores([&] { engine_.getDimension(typeId); })) return RecordKind::Dimension;
  if (stores([&] { engine_.getSymbol(typeId); })) return RecordKind::Symbol;
  if (stores([&] { engine_.getQuantity(typeId); })) return RecordKind::Quantity;
  return std::nullopt;
}

const KnownDefinitions::Known* KnownDefinitions::find(const std::string& typeId) {
  const auto earlier = earlier_.find(typeId);
  if (earlier != earlier_.end()) return &earlier->second;
  auto stored = stored_.find(typeId);
  if (stored == stored_.end()) {
    std::optional<Known> known;
    if (engine_.isRegistered(typeId)) known = Known{kindInEngine(typeId), noFile};
    stored = stored_.emplace(typeId, known).first;
  }
  return stored->second ? &*stored->second : nullptr;
}

}  // namespace Schemas
