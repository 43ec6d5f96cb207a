#pragma once

#include <TrelvonUnits/Export.h>
#include <TrelvonUnits/Shared.h>
#include <TrelvonUnits/Unit.h>

#include <string>
#include <vector>

namespace Units {

/// A physical quantity, such as torque, and the units in which it may be expressed.
///
/// An engine converts between all units with equal powers; a quantity tells which of them make
/// sense together. Torque and energy have the same powers, but list different units.
class TRELVONUNITS_API Quantity {
 public:
  /// Nothing is checked here: an engine checks all three when the quantity is added.
  ///
  /// @param typeId  any text that is not empty.
  /// @param name    UTF-8, for display; not empty.
  /// @param units   in the order in which a host offers them; may be empty, and repeats are kept.
  ///                When the quantity is added, an engine replaces each unit by its own unit with
  ///                the same type id.
  Quantity(const std::string& typeId, const std::string& name, const std::vector<Unit>& units);

  Quantity(const Quantity& other) noexcept;
  Quantity(Quantity&& other) noexcept;  ///< Copies; `other` stays readable.
  ~Quantity();
  Quantity& operator=(const Quantity&) = delete;

  std::string getTypeId() const;       ///< As given.
  std::string getName() const;         ///< As given.
  std::vector<Unit> getUnits() const;  ///< In full, in the given order.

  /// Whether both type ids have the same bytes. Two quantities with the same type id are equal even
  /// if their names or units differ.
  bool operator==(const Quantity& other) const;
  /// The negation of `==`.
  bool operator!=(const Quantity& other) const;
  /// Orders by type id, byte by byte as std::string does: "B" before "a", "a" before "ab". This is
  /// the order of the maps that an engine returns.
  bool operator<(const Quantity& other) const;
  /// The same as `other < *this`.
  bool operator>(const Quantity& other) const;

 private:
  friend struct RecordAccess;  // reads in place inside the library

  struct Contents;
  explicit Quantity(Shared<Contents>&& contents) noexcept;
  const Shared<Contents> contents_;
};

}  // namespace Units
