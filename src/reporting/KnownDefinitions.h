#pragma once

#include "reporting/DefinitionReader.h"
#include "reporting/Findings.h"

#include <TrelvonUnits/UnitsEngine.h>

#include <map>
#include <optional>
#include <string>

namespace Schemas {

/// The definitions that a batch may refer to: those of an engine, and of earlier batches.
class KnownDefinitions {
 public:
  struct Known {
    std::optional<RecordKind> kind;  // empty if it is pending: only the build shows it
    std::size_t file;                // `noFile` if the engine stores it
  };

  explicit KnownDefinitions(const Units::UnitsEngine& engine) : engine_(engine) {}

  bool isTaken(const std::string& typeId) const {
    return earlier_.count(typeId) != 0 || engine_.isRegistered(typeId);
  }

  /// Null if nothing has that type id.
  const Known* find(const std::string& typeId);

  void add(const std::string& typeId, RecordKind kind, std::size_t file) {
    earlier_.insert_or_assign(typeId, Known{kind, file});
  }

  /// Adds the type ids of all definitions of a kind that `accepts` lets a reference name.
  template <class Texts>
  void collect(RecordKind kind, const Reference& reference, Texts& out) const {
    for (const auto& [typeId, known] : earlier_)
      if (known.kind && accepts(kind, reference, *known.kind)) out.insert(typeId);
    collectStored(kind, reference, [&](const std::string& typeId) { out.insert(typeId); });
  }

 private:
  template <class Take>
  void collectStored(RecordKind kind, const Reference& reference, const Take& take) const {
    if (accepts(kind, reference, RecordKind::Dimension))
      for (const auto& [typeId, record] : engine_.getDimensions()) take(typeId);
    if (accepts(kind, reference, RecordKind::Factor))
      for (const auto& [typeId, record] : engine_.getFactors()) take(typeId);
    if (accepts(kind, reference, RecordKind::RelativeUnit))
      for (const auto& [typeId, record] : engine_.getUnits()) take(typeId);
  }

  std::optional<RecordKind> kindInEngine(const std::string& typeId) const;

  const Units::UnitsEngine& engine_;
  std::map<std::string, Known> earlier_;
  std::map<std::string, std::optional<Known>> stored_;  // as far as it was asked for
};

}  // namespace Schemas
