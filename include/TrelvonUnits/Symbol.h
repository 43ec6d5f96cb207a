#pragma once

#include <TrelvonUnits/Export.h>
#include <TrelvonUnits/PrefixOrSuffix.h>
#include <TrelvonUnits/Shared.h>
#include <TrelvonUnits/Unit.h>

#include <optional>
#include <string>

namespace Units {

/// How numbers in a unit are displayed: with a text before or after them or, for a composite
/// symbol, in one of four built-in layouts. Formulas also read the text of a symbol as its unit.
///
/// A composite symbol has no prefix or suffix; a piece of its type id names the layout. The number
/// counts the first unit of the layout:
///
///   ":feetAndInches-1"           5' 6"
///   ":feetHyphenInches-1"        5' - 6"
///   ":degreesMinutesSeconds-1"   10 degrees, 30' 0" (with the degree sign)
///   ":metersAndCentimeters-1"    2m 35cm
class TRELVONUNITS_API Symbol {
 public:
  /// Nothing is checked here: an engine checks the type id and the unit when the symbol is added.
  ///
  /// @param typeId          any text that is not empty; for a composite symbol, one that contains
  ///                        one of the four pieces above.
  /// @param unit            the unit displayed. When the symbol is added, an engine replaces it by
  ///                        its own unit with the same type id.
  /// @param prefixOrSuffix  empty for a composite symbol.
  Symbol(const std::string& typeId, const Unit& unit,
         const std::optional<PrefixOrSuffix>& prefixOrSuffix);

  Symbol(const Symbol& other) noexcept;
  Symbol(Symbol&& other) noexcept;  ///< Copies; `other` stays readable.
  ~Symbol();
  Symbol& operator=(const Symbol&) = delete;

  std::string getTypeId() const;                            ///< As given.
  Unit getUnit() const;                                     ///< The unit displayed, in full.
  std::optional<PrefixOrSuffix> getPrefixOrSuffix() const;  ///< Empty for a composite symbol.

  /// Whether both type ids have the same bytes. Two symbols with the same type id are equal even if
  /// they look different.
  bool operator==(const Symbol& other) const;
  /// The negation of `==`.
  bool operator!=(const Symbol& other) const;
  /// Orders by type id, byte by byte as std::string does: "B" before "a", "a" before "ab". This is
  /// the order of the maps that an engine returns.
  bool operator<(const Symbol& other) const;
  /// The same as `other < *this`.
  bool operator>(const Symbol& other) const;

 private:
  friend struct RecordAccess;  // reads in place inside the library

  struct Contents;
  explicit Symbol(Shared<Contents>&& contents) noexcept;
  const Shared<Contents> contents_;
};

}  // namespace Units
