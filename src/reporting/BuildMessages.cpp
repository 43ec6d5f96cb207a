#include "reporting/BuildMessages.h"

#include "schema/DimensionSchema.h"
#include "schema/FactorSchema.h"
#include "schema/QuantitySchema.h"
#include "schema/SymbolSchema.h"
#include "schema/UnitSchema.h"

#include <TrelvonUnits/TrelvonUnits.h>

#include <map>
#include <memory>

namespace Schemas {

namespace {

using namespace Units;
using Powers = std::map<std::string, int>;

class Trial {
 public:
  /// @param id, otherId  under trial.
  explicit Trial(const std::string& id, const std::string& otherId) : stub_(id + otherId + "-") {}

  void add(const std::string& text) {
    if (message.empty()) attempt([&] { engine_->addDefinition(text); });
  }

  void build() {
    if (message.empty()) attempt([&] { engine_->buildSchemas(); });
  }

  /// A definition of a kind that refers to another one in a constant, and has no other fault.
  void addUser(const std::string& id, RecordKind kind, const std::string& constant,
               const std::string& referred) {
    switch (kind) {
      case RecordKind::Dimension:
        return add(writeDimensionSchema(Dimension(id)));
      case RecordKind::Factor:
        return add(writeFactorSchema(Factor(id, FactorComponent(1.0, powersOf(referred)))));
      case RecordKind::AbsoluteUnit:
        return add(writeUnitSchema(unit(id, AbsoluteUnitComponent(referred, 0.0))));
      case RecordKind::Symbol:
        return add(
            writeSymbolSchema(Symbol(id, primitive(referred), PrefixOrSuffix("", {}, false))));
      case RecordKind::Quantity:
        return add(writeQuantitySchema(Quantity(id, "-", {primitive(referred)})));
      case RecordKind::RelativeUnit:
        break;
    }
    if (constant == "dimension")
      add(writeUnitSchema(unit(id, PrimitiveUnitComponent(Dimension(referred)))));
    else if (constant == "parentFactors")
      add(writeUnitSchema(unit(
          id,
          DerivedUnitComponent(powersOf(standIn()), FactorComponent(1.0, powersOf(referred))))));
    else
      add(writeUnitSchema(
          unit(id, DerivedUnitComponent(powersOf(referred), FactorComponent(1.0)))));
  }

  /// A definition of a kind that has no fault.
  void addSound(const std::string& id, RecordKind kind) {
    if (kind == RecordKind::Factor)
      add(writeFactorSchema(Factor(id, FactorComponent(1.0))));
    else
      addUser(id, kind, "", standIn());
  }

  std::string message;

 private:
  /// A unit that anything may refer to; added when it is first needed. Its id is longer than those
  /// being tried.
  const std::string& standIn() {
    if (!isStubAdded_) {
      isStubAdded_ = true;
      add(writeUnitSchema(primitive(stub_)));
    }
    return stub_;
  }

  template <class Action>
  void attempt(const Action& action) {
    try {
      action();
    } catch (const ValidationException& error) {
      message = error.what();
    }
  }

  static Powers powersOf(const std::string& id) { return {{id, 1}}; }

  template <class Component>
  static Unit unit(const std::string& id, const Component& component) {
    return Unit(id, "-", System::Metric, component);
  }
  static Unit primitive(const std::string& id) { return unit(id, PrimitiveUnitComponent()); }

  const std::unique_ptr<UnitsEngine> engine_{CreateUnitsEngine()};
  const std::string stub_;
  bool isStubAdded_ = false;
};

}  // namespace

std::string messageOfTaken(const std::string& text, const std::string& typeId) {
  Trial trial(typeId, "");
  trial.addSound(typeId, RecordKind::Dimension);
  trial.add(text);
  return trial.message;
}

std::string messageOfReference(const Definition& definition, const Reference& reference,
                               std::optional<RecordKind> referred) {
  Trial trial(definition.typeId, reference.typeId);
  trial.addUser(definition.typeId, definition.kind, reference.constant, reference.typeId);
  if (referred && reference.typeId != definition.typeId)
    trial.addSound(reference.typeId, *referred);
  trial.build();
  return trial.message;
}

std::string messageOfCircle(const std::vector<const Definition*>& circle) {
  Trial trial(circle.front()->typeId, "");
  for (std::size_t place = 0; place < circle.size(); ++place)
    trial.addUser(circle[place]->typeId, circle[place]->kind, "parentUnits",
                  circle[(place + 1) % circle.size()]->typeId);
  trial.build();
  return trial.message;
}

}  // namespace Schemas
