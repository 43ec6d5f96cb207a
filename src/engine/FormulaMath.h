#pragma once

#include "engine/Reduction.h"
#include "formula/UnitMath.h"
#include "model/RecordStore.h"

#include <unordered_map>

namespace Units {

/// The engine's unit math for the length of one evaluation: a unit that a formula names a thousand
/// times is reduced once, and so is what several of its units rest on.
class FormulaMath final : public UnitMath {
 public:
  FormulaMath(const UnitMath& engine, const RecordStore<Unit>& units)
      : engine_(engine), units_(units) {}

  void reduceUnit(const Unit& unit, double& factor, double& offset,
                  PrimitivePowers& powers) const override;
  bool arePowersCompatible(PrimitivePowers a, PrimitivePowers b, bool& inverted) const override;
  void reduceValue(const Unit& unit, double& value, UnitPowerMap& powers) const override;
  const FunctionMap& getFunctionMap() const override;
  const BinaryOperatorMap& getBinaryOperatorMap() const override;
  const UnaryOperatorMap& getUnaryOperatorMap() const override;
  void reduceInPlace(const Unit& unit, double& factor, double& offset,
                     UnitPowers& powers) const override;

 private:
  struct Reduced {
    double factor;
    double offset;
    UnitPowers powers;
  };

  const UnitMath& engine_;
  const RecordStore<Unit>& units_;
  mutable Reducer reducer_;
  mutable std::unordered_map<const RecordNode<Unit>*, Reduced> reduced_;
};

/// A unit's reduction as formulas compute with it.
void toUnitPowers(const Powers& powers, UnitPowers& unitPowers);

}  // namespace Units
