#pragma once

#include <TrelvonUnits/Export.h>
#include <TrelvonUnits/PrefixOrSuffix.h>
#include <TrelvonUnits/Shared.h>
#include <TrelvonUnits/Unit.h>

#include <optional>
#include <string>

namespace Units {

/// How numbers in a unit are shown: with a text before or after them or, for a composite symbol,
/// in one of four built-in layouts such as feet and inches.
class TRELVONUNITS_API Symbol {
 public:
  /// @param typeId          names the symbol; an engine refuses an empty one when it is added.
  /// @param unit            the unit shown. An engine replaces it by its own unit of that type id
  ///                        when the symbol is added.
  /// @param prefixOrSuffix  none for a composite symbol, whose type id must then contain
  ///                        ":degreesMinutesSeconds-1", ":feetAndInches-1", ":feetHyphenInches-1"
  ///                        or ":metersAndCentimeters-1".
  Symbol(const std::string& typeId, const Unit& unit,
         const std::optional<PrefixOrSuffix>& prefixOrSuffix);

  Symbol(const Symbol& other) noexcept;
  Symbol(Symbol&& other) noexcept;  ///< Copies; `other` stays readable.
  ~Symbol();
  Symbol& operator=(const Symbol&) = delete;

  std::string getTypeId() const;
  Unit getUnit() const;
  std::optional<PrefixOrSuffix> getPrefixOrSuffix() const;

  // Symbols are compared by their type ids alone, byte by byte.
  bool operator==(const Symbol& other) const;
  bool operator!=(const Symbol& other) const;
  bool operator<(const Symbol& other) const;
  bool operator>(const Symbol& other) const;

 private:
  friend struct RecordAccess;  // reads in place inside the library

  struct Contents;
  const Shared<Contents> contents_;
};

}  // namespace Units
