#pragma once

#include <TrelvonUnits/Export.h>
#include <TrelvonUnits/Shared.h>

#include <string>
#include <string_view>
#include <vector>

namespace Units {

/// What other systems call units: the codes of UCUM, UN/CEFACT Recommendation 20, QUDT or UDUNITS
/// for a unit. `UnitNames` finds units by codes.
///
/// Codes are not definitions, and engines do not read them. They come from mapping files, such as
/// `codes.json` of the catalog's packs:
///
///   {"version": 1, "codes": {
///     "trelvon.unit:foot-1.0.0": {"ucum": ["[ft_i]"], "rec20": ["FOT"], "udunits": ["foot"]}}}
///
/// A row maps the name of any system to codes. The first code is the one to write. Members that are
/// not lists are skipped.
///
/// It never changes, and any number of threads may use it. Copies share its contents. All functions
/// except copying may throw std::bad_alloc.
class TRELVONUNITS_API UnitCodes {
 public:
  UnitCodes();  ///< No codes.
  UnitCodes(const UnitCodes& other) noexcept;
  ~UnitCodes();
  UnitCodes& operator=(const UnitCodes&) = delete;

  /// Reads a mapping file.
  ///
  /// @param json  the text of the file, read up to the first NUL; any bytes.
  /// @throws std::logic_error  "unit codes, LINE:COLUMN: REASON": the text is not JSON, has no
  ///                           "version": 1 or no "codes", a row is not an object, or a code is not
  ///                           a string.
  static UnitCodes fromText(std::string_view json);

  /// Returns these codes and those of another mapping. If a unit has both, these come first.
  UnitCodes with(const UnitCodes& other) const;

  /// Returns the names of all systems, in byte order.
  std::vector<std::string> getSystems() const;

  /// Returns the type ids of all units that have codes, in byte order.
  std::vector<std::string> getUnits() const;

  /// Returns the codes of a unit in a system, the one to write first; empty if it has none.
  ///
  ///   codes.getCodes("trelvon.unit:foot-1.0.0", "rec20")   {"FOT"}
  std::vector<std::string> getCodes(const std::string& unitTypeId, const std::string& system) const;

  /// Returns the text of a mapping file with these codes.
  std::string toText() const;

 private:
  friend class UnitNames;

  struct Contents;
  explicit UnitCodes(const Contents* contents) noexcept;

  const Shared<Contents> contents_;
};

}  // namespace Units
