#pragma once

#include <TrelvonUnits/Export.h>
#include <TrelvonUnits/Shared.h>

#include <string>

namespace Units {

/// A base quantity (length, mass, time ...) that primitive units can share. Nothing but a name:
/// which dimensions exist is up to the definitions that a host loads.
class TRELVONUNITS_API Dimension {
 public:
  /// @param typeId  names the dimension; an engine refuses an empty one when it is added.
  Dimension(std::string typeId);

  Dimension(const Dimension& other) noexcept;
  Dimension(Dimension&& other) noexcept;  ///< Copies; `other` stays readable.
  ~Dimension();
  Dimension& operator=(const Dimension&) = delete;

  std::string getTypeId() const;

  // Dimensions are compared by their type ids alone, byte by byte.
  bool operator==(const Dimension& other) const;
  bool operator!=(const Dimension& other) const;
  bool operator<(const Dimension& other) const;
  bool operator>(const Dimension& other) const;

 private:
  friend struct RecordAccess;  // reads in place inside the library

  struct Contents;
  const Shared<Contents> contents_;
};

}  // namespace Units
