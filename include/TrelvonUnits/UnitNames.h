#pragma once

#include <TrelvonUnits/Export.h>
#include <TrelvonUnits/Shared.h>
#include <TrelvonUnits/Unit.h>
#include <TrelvonUnits/UnitCodes.h>
#include <TrelvonUnits/UnitsEngine.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Units {

/// How a text names a unit.
enum class NameKind {
  TypeId,          ///< "trelvon.unit:squareFoot-1.0.0"
  LocalId,         ///< "squareFoot": the type id without namespace and version
  Name,            ///< "square foot"
  SymbolText,      ///< "ft^2": the text of one of the unit's symbols
  Code,            ///< "ucum:[sft_i]": a code of another system, after the name of the system
  CodeExpression,  ///< "ucum:kg.m-3": an expression of codes that has the size and the powers of a
                   ///< unit. The text is the one that was searched.
};

/// A text that names a unit, as `UnitNames` finds it. It does not depend on an engine or on the
/// `UnitNames`, and is as cheap to copy as a record.
class TRELVONUNITS_API UnitName {
 public:
  UnitName(const UnitName& other) noexcept;
  UnitName(UnitName&& other) noexcept;  ///< Copies; `other` stays readable.
  ~UnitName();
  UnitName& operator=(const UnitName&) = delete;

  Unit getUnit() const;         ///< The unit that is named.
  NameKind getKind() const;     ///< How the text names the unit.
  std::string getText() const;  ///< The text as the engine has it, not as it was searched.

  /// Whether the searched text is exactly `getText()` or, for `completions`, its beginning.
  bool isExact() const;

 private:
  friend class UnitNames;

  struct Contents;
  UnitName(const Shared<Contents>& contents, bool isExact) noexcept;

  const Shared<Contents> contents_;
  const bool isExact_;
};

/// Finds units by what people call them: by type id, local id, name, symbol text or the code of
/// another system.
///
/// - It has the units and symbols of an engine at the time of construction, never changes, and
///   holds no reference to the engine. Any number of threads may use it at once.
/// - A copy shares what it has, as copies of a record do, and costs a pointer.
/// - A text may name several units, and all of them are returned: which one is meant is for the
///   host to decide, or to ask.
/// - Letter case, spaces, hyphens and underscores do not count where the text says "loosely".
///   Letters are those of ASCII, in every locale; all other bytes must be the same. Any bytes are
///   safe.
/// - No choice of names slows a search down. `find` takes time for the bytes of its text, the
///   logarithm of the number of names, and its result; `completions` for the names that begin so;
///   `suggest` for the number of names, however long they are. The first search that is not exact
///   also sorts the names for those that follow.
///
///   const Units::UnitNames names(*engine);
///   names.find("square foot").at(0).getUnit().getTypeId();   // "trelvon.unit:squareFoot-1.0.0"
///
/// All functions except copying may throw std::bad_alloc, and nothing else.
class TRELVONUNITS_API UnitNames {
 public:
  /// Reads the units and symbols of an engine. Its cost grows with their number.
  ///
  /// A symbol without a text (a composite symbol) names nothing, and neither does an empty text. The
  /// local id is the type id without what ends at its last colon, and without the version, which is
  /// a hyphen and what follows it if that begins with a digit and has no other hyphen. It may be the
  /// whole type id.
  ///
  /// @param engine  any engine; only `getUnits` and `getSymbols` are called, and only here. What a
  ///                host-implemented engine throws passes through.
  explicit UnitNames(const UnitsEngine& engine);

  /// The same, with the codes of other systems.
  ///
  ///   const Units::UnitNames names(*engine, Units::UnitCodes::fromText(mapping));
  ///   names.find("rec20:FOT");        the foot
  ///   names.find("qdt:FT");           the foot: "qdt" is read as "qudt"
  ///   names.find("ucum:kg.m-3");      kilogram per cubic meter, by an expression
  ///
  /// @param engine  any engine, as above.
  /// @param codes   those of units that the engine does not have are ignored.
  UnitNames(const UnitsEngine& engine, const UnitCodes& codes);

  UnitNames(const UnitNames& other) noexcept;
  UnitNames(UnitNames&& other) noexcept;  ///< Copies; `other` stays usable.
  ~UnitNames();
  UnitNames& operator=(const UnitNames&) = delete;

  /// Returns all units that a text names.
  ///
  ///   find("trelvon.unit:foot-1.0.0")   the foot, by its type id
  ///   find("Square-Foot")               the square foot, loosely by its local id
  ///   find("mW"), find("MW")            milliwatt and megawatt: the case of symbols always counts
  ///   find("K")                         kelvin, as a difference and as a temperature scale
  ///   find("smoot")                     empty
  ///
  /// A text that names nothing may be the plural of a local id or name in English: one of its words
  /// is then made singular ("square feet", "feet per second"). Or it may be an expression of UCUM
  /// or UDUNITS, which names the units with its size and powers.
  ///
  /// @param text  any bytes. Type ids, symbol texts and codes match exactly; local ids and names
  ///              match loosely, too.
  /// @return  each unit once, for the first reason in this order: exact before loose, then in order
  ///          of `NameKind`. The result is in that order, and then in order of type id.
  std::vector<UnitName> find(std::string_view text) const;

  /// Returns what `find` returns for the best reason: a unit by its type id, which leaves no doubt;
  /// or else all exact matches; or else all loose ones. So an empty result is an unknown text, one
  /// unit is what the text means, and of several only a person can say which one is meant.
  ///
  ///   findBest("foot")   the foot, though "Foot" is loosely the name of others, too
  ///   findBest("K")      kelvin, as a difference and as a temperature scale
  std::vector<UnitName> findBest(std::string_view text) const;

  /// Returns the units that a code or an expression of codes stands for, as `find` does for
  /// "SYSTEM:CODE".
  std::vector<UnitName> findCode(std::string_view system, std::string_view code) const;

  /// Explains in a sentence why `find` finds nothing. For an expression of codes, tells what it is,
  /// or what is wrong with it. Empty if `find` finds a unit.
  std::string whyNot(std::string_view text) const;

  /// Returns all texts that name a unit, in order of `NameKind`, then of symbol texts in byte order.
  ///
  /// @param unit  a unit of the engine, by its type id. Any other has no names.
  std::vector<UnitName> namesOf(const Unit& unit) const;

  /// Returns a text by which `findBest` finds a unit and no other: the first of its local id, name,
  /// symbol texts and codes that does, or else its type id. Use it to list the units of an
  /// ambiguous text.
  ///
  /// @param unit  a unit of the engine; of any other the type id is returned.
  std::string unambiguousName(const Unit& unit) const;

  /// Returns the local id of a type id, of any kind of record: "foot" of
  /// "trelvon.unit:foot-1.0.0". It may be empty.
  static std::string localId(std::string_view typeId);

  /// Returns the units with a name that is near to a text, for "did you mean ...?".
  ///
  ///   suggest("kilometre per huor", 3)   kilometer per hour first
  ///   suggest("mw", 3)                   MW of the megawatt, then mW of the milliwatt, then MWh
  ///   suggest("x", 3)                    empty: one character has no errors
  ///
  /// An error is a character inserted, deleted, replaced, or swapped with its neighbor. (A
  /// character is a code point of UTF-8, or a byte that is not UTF-8.) A text may have one error
  /// for every three characters, rounded, and at most three. It is compared loosely with every type
  /// id, local id, name and symbol text. Texts of more than 256 bytes are not near any name.
  ///
  /// @param text   any bytes.
  /// @param count  how many to return at most.
  /// @return  each unit once, with the text that is nearest. Fewer errors come first, then longer
  ///          common beginnings, then lower type ids.
  std::vector<UnitName> suggest(std::string_view text, std::size_t count) const;

  /// Returns the local ids, names and symbol texts that begin with a text, for a host that completes
  /// what is typed. A unit that has several of them is returned several times, but
  /// no text twice for one unit.
  ///
  ///   completions("kilom", 3)   kilometer, kilometer per hour, kilometerPerHour
  ///
  /// @param prefix  any bytes; compared loosely. If it is empty, every text begins with it.
  /// @param count   how many to return at most.
  /// @return  first the texts that begin with exactly `prefix`, then the others. Both are in byte
  ///          order of the texts in lower case without spaces, hyphens and underscores, then of the
  ///          texts as they are, then in order of `NameKind`, then of type id.
  std::vector<UnitName> completions(std::string_view prefix, std::size_t count) const;

 private:
  struct Contents;

  std::vector<UnitName> findOtherwise(std::string_view text) const;

  const Shared<Contents> contents_;
};

}  // namespace Units
