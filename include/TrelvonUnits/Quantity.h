#pragma once

#include <TrelvonUnits/Export.h>
#include <TrelvonUnits/Shared.h>
#include <TrelvonUnits/Unit.h>

#include <string>
#include <vector>

namespace Units {

/// A physical quantity and the units in which it may be expressed.
class TRELVONUNITS_API Quantity {
 public:
  /// @param typeId  names the quantity; an engine refuses an empty one when it is added.
  /// @param name    for display; an engine refuses an empty one.
  /// @param units   in the order in which a host offers them; repeats are kept. An engine replaces
  ///                each by its own unit of that type id when the quantity is added.
  Quantity(const std::string& typeId, const std::string& name, const std::vector<Unit>& units);

  Quantity(const Quantity& other) noexcept;
  Quantity(Quantity&& other) noexcept;  ///< Copies; `other` stays readable.
  ~Quantity();
  Quantity& operator=(const Quantity&) = delete;

  std::string getTypeId() const;
  std::string getName() const;
  std::vector<Unit> getUnits() const;

  // Quantities are compared by their type ids alone, byte by byte.
  bool operator==(const Quantity& other) const;
  bool operator!=(const Quantity& other) const;
  bool operator<(const Quantity& other) const;
  bool operator>(const Quantity& other) const;

 private:
  friend struct RecordAccess;  // reads in place inside the library

  struct Contents;
  const Shared<Contents> contents_;
};

}  // namespace Units
