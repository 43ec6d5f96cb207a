#include "engine/FormulaMath.h"

#include "model/RecordAccess.h"

#include <utility>

namespace Units {

void FormulaMath::reduceInPlace(const Unit& unit, double& factor, double& offset,
                                UnitPowers& powers) const {
  const RecordNode<Unit>& node = lookUpNode(units_, RecordAccess::typeId(unit));
  auto known = reduced_.find(&node);
  if (known == reduced_.end()) {
    const ReducedUnit reduced = reducer_.reduce(node);
    UnitPowers unitPowers;
    toUnitPowers(reduced.powers, unitPowers);
    known = reduced_.emplace(&node, Reduced{reduced.factor, reduced.offset, std::move(unitPowers)})
                .first;
  }
  factor = known->second.factor;
  offset = known->second.offset;
  powers = known->second.powers;
}

void toUnitPowers(const Powers& powers, UnitPowers& unitPowers) {
  unitPowers.clear();
  unitPowers.reserve(powers.size());
  for (const auto& [primitive, exponent] : powers)
    unitPowers.push_back(
        {&RecordAccess::typeId(*primitive->record), static_cast<double>(exponent)});
  orderPowers(unitPowers);
}

// The rest is the engine's.

void FormulaMath::reduceUnit(const Unit& unit, double& factor, double& offset,
                             PrimitivePowers& powers) const {
  engine_.reduceUnit(unit, factor, offset, powers);
}

bool FormulaMath::arePowersCompatible(PrimitivePowers a, PrimitivePowers b, bool& inverted) const {
  return engine_.arePowersCompatible(std::move(a), std::move(b), inverted);
}

void FormulaMath::reduceValue(const Unit& unit, double& value, UnitPowerMap& powers) const {
  engine_.reduceValue(unit, value, powers);
}

const FunctionMap& FormulaMath::getFunctionMap() const { return engine_.getFunctionMap(); }

const BinaryOperatorMap& FormulaMath::getBinaryOperatorMap() const {
  return engine_.getBinaryOperatorMap();
}

const UnaryOperatorMap& FormulaMath::getUnaryOperatorMap() const {
  return engine_.getUnaryOperatorMap();
}

}  // namespace Units
