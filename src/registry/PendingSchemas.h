#pragma once

#include "model/IndexedMap.h"
#include "model/SharedText.h"

#include <TrelvonUnits/Dimension.h>
#include <TrelvonUnits/Factor.h>
#include <TrelvonUnits/PrefixOrSuffix.h>
#include <TrelvonUnits/System.h>
#include <TrelvonUnits/Unit.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

namespace Units {

// Schemas whose records need other records, which may be read later.

struct DimensionalUnitSchema {
  std::string name;
  System unitSystem;
  SharedText dimension;
};

struct SymbolSchema {
  SharedText unit;
  std::optional<PrefixOrSuffix> prefixOrSuffix;
};

struct QuantitySchema {
  std::string name;
  std::vector<SharedText> units;
};

/// A schema that was read: its record, or what is needed to make it.
struct PendingSchema {
  struct OnlyAwaited {};  // other schemas refer to this type id, but it has not been read

  // In the order in which the records are built. The long ones, of which there are few, are stored
  // elsewhere.
  using Contents =
      std::variant<OnlyAwaited, Dimension, Factor, Unit, std::unique_ptr<DimensionalUnitSchema>,
                   SymbolSchema, std::unique_ptr<QuantitySchema>>;

  bool isRegistered() const { return !std::holds_alternative<OnlyAwaited>(contents); }

  SharedText typeId;
  Contents contents;
};

/// Pending schemas, found by type id. They are put in order only when they are built, which takes
/// less time than an ordered map of them.
///
/// A table of hashes finds them, as in `IndexedMap`: any number of type ids may share a hash. Those
/// that find their slots taken are in a map.
class PendingSchemas {
 public:
  PendingSchemas() = default;
  PendingSchemas(PendingSchemas&&) = default;
  PendingSchemas& operator=(PendingSchemas&&) = default;

  /// Null if nothing is known of a type id. Valid until the next `share`.
  const PendingSchema* find(const HashedText& typeId) const;

  /// What is known of a type id. If nothing is, it is awaited from now on. If this throws, nothing
  /// has changed.
  PendingSchema& share(const HashedText& typeId);

  /// All schemas, by kind and type id. Does not include what is only awaited.
  std::vector<PendingSchema*> inOrder();

  std::size_t size() const { return schemas_.size(); }

 private:
  struct Slot {
    std::uint32_t hash = 0;
    std::uint32_t end = 0;  // one more than the place in the list; 0 if the slot is free
  };
  struct Table {
    bool add(Slot slot) noexcept;

    std::vector<Slot> slots;   // has slotsPerKey - 1 extra, so a key's slots never wrap around
    std::size_t capacity = 0;  // 0 or a power of two
  };
  using Crowded = std::map<std::string_view, std::uint32_t>;

  static constexpr std::size_t slotsPerKey = 8;  // tuning

  void grow();

  std::vector<PendingSchema> schemas_;  // in the order of their arrival
  Table table_;
  Crowded crowded_;  // the places of schemas that have no slot
};

}  // namespace Units
