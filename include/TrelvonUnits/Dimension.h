#pragma once

#include <TrelvonUnits/Export.h>
#include <TrelvonUnits/Shared.h>

#include <string>

namespace Units {

/// A base quantity (length, mass, time ...) that primitive units can share.
///
/// A dimension is only a name; the definitions that a host loads decide which dimensions exist. It
/// groups units for `getPrimitiveUnitsOfDimension` and plays no part in conversion.
class TRELVONUNITS_API Dimension {
 public:
  /// Not explicit: `engine.addDimension(std::string("example.dimension:length-1.0.0"))` works.
  ///
  /// @param typeId  any text; an engine rejects an empty one when the dimension is added. The
  ///                customary form is `namespace:name-version`.
  Dimension(std::string typeId);

  Dimension(const Dimension& other) noexcept;
  Dimension(Dimension&& other) noexcept;  ///< Copies; `other` stays readable.
  ~Dimension();
  Dimension& operator=(const Dimension&) = delete;

  std::string getTypeId() const;  ///< As given.

  /// Whether both type ids have the same bytes.
  bool operator==(const Dimension& other) const;
  /// The negation of `==`.
  bool operator!=(const Dimension& other) const;
  /// Orders by type id, byte by byte as std::string does: "B" before "a", "a" before "ab". This is
  /// the order of the maps that an engine returns.
  bool operator<(const Dimension& other) const;
  /// The same as `other < *this`.
  bool operator>(const Dimension& other) const;

 private:
  friend struct RecordAccess;  // reads in place inside the library

  struct Contents;
  explicit Dimension(Shared<Contents>&& contents) noexcept;
  const Shared<Contents> contents_;
};

}  // namespace Units
