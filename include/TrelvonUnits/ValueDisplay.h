#pragma once

#include <TrelvonUnits/Export.h>
#include <TrelvonUnits/FormulaExplanation.h>
#include <TrelvonUnits/Shared.h>
#include <TrelvonUnits/UnitsEngine.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Units {

struct DisplayContents;         // known to the library alone
struct DisplayReadingContents;  // likewise

/// How to show values. Set at most one of `places`, `denominator` and `significant`. With none of
/// them, values are tidy: at most 15 significant digits, without trailing zeros. The members are part
/// of the binary interface and never change.
struct DisplayOptions {
  /// The sign of negative numbers.
  enum class Minus : std::int32_t {
    OfLocale = 0,
    Hyphen = 1,  ///< "-", U+002D
    Sign = 2,    ///< U+2212
  };

  /// Type id of the unit that values are given in. If empty, the unit of the symbol.
  std::string unit;

  /// Type id of the symbol, plain or composite. If the symbol has another unit, values are converted
  /// to it. If empty, the first symbol of `unit` that has a text, in order of type ids. If `unit` is
  /// empty, too, the number is shown alone.
  std::string symbol;

  bool showsUnit = true;  ///< Whether the text of the symbol is shown.

  std::optional<int> places;       ///< Decimal places, 0 to 12.
  std::optional<int> denominator;  ///< Shows fractions: 1, 2, 4, 8 ... 512.
  std::optional<int> significant;  ///< Significant digits, 1 to 17.

  bool trims = false;   ///< Whether to drop trailing zeros after the decimal mark.
  bool groups = false;  ///< Whether to group the digits before the decimal mark.

  std::string locale = "en";  ///< One of `ValueDisplay::locales`.
  std::string decimalMark;    ///< Replaces the locale's: "." "," U+066B.
  std::string groupMark;      ///< Replaces the locale's: "." "," " " U+00A0 U+202F U+2019 U+066C.
  Minus minus = Minus::OfLocale;  ///< How the sign is written.
  bool hasNoBreakSpaces = false;  ///< Whether spaces are U+00A0, so that no line breaks there.

  /// Type ids of plain symbols to choose from. A value is shown in the largest of their units in
  /// which it is `leastBest` or more, before or after rounding; if there is none, in the smallest.
  std::vector<std::string> bestSymbols;
  /// Type id of a quantity that stands in for `bestSymbols`. The choice is among those of its units
  /// that belong to the same system as the value's unit and differ from it by a power of 1000.
  std::string bestQuantity;
  double leastBest = 1.0;  ///< Above 0.
};

/// The kind of a piece of a text.
enum class DisplayPieceKind : std::int32_t { Sign = 1, Number = 2, Fraction = 3, Unit = 4 };

/// A piece of a text that was read. Its members are part of the binary interface and never change.
struct DisplayPiece {
  DisplayPieceKind kind = DisplayPieceKind::Number;  ///< What it is.
  FormulaSpan span;                                  ///< Where it is in the text, whose index is 0.
};

/// The outcome of reading a text: a value, or a refusal. Copies share their contents.
class TRELVONUNITS_API DisplayReading {
 public:
  DisplayReading(const DisplayReading& other) noexcept;
  DisplayReading(DisplayReading&& other) noexcept;  ///< Copies.
  ~DisplayReading();
  DisplayReading& operator=(const DisplayReading&) = delete;

  bool isRead() const;   ///< Whether there is a value.
  double value() const;  ///< In the display's unit. NaN if the text was refused.
  std::vector<DisplayPiece> pieces() const;  ///< What was read, in order, up to a refusal.

  FormulaSpan span() const;             ///< What was refused. If nothing was, the whole text.
  const std::string& sentence() const;  ///< Says why, for people. Empty if the text was read.
  /// If the refused number has two readings, both: first with the point as the decimal mark, then
  /// with the comma. They are the numbers as written, without sign and unit.
  std::vector<double> readings() const;

  /// All of this as one JSON object, described in docs/display.md.
  std::string toJson() const;

 private:
  friend class ValueDisplay;
  explicit DisplayReading(const DisplayReadingContents* contents) noexcept;

  const Shared<DisplayReadingContents> contents_;
};

/// Shows values of a unit the way people write them, and reads them back.
///
///   Units::DisplayOptions options;
///   options.symbol = "trelvon.symbol:feetAndInches-1.0.0";
///   options.denominator = 16;
///   const Units::ValueDisplay display(*engine, options);
///   display.show(5.9999);                // 6' 0", where the engine writes 5' 12"
///   display.read("5' 6 3/8\"").value();  // 5.53125
///
/// - A value is rounded once, to steps of its last part (sixteenths of an inch), before it is split
///   into parts. So it never shows 12 inches that should be a foot.
/// - Halves round away from zero, by the engine's rule: a plain symbol with `places` or `denominator`
///   shows the digits of `formatFixedPoint` or `formatFractional`. From 2^50 steps on, the exact
///   value is rounded, so that every digit is right.
/// - A number that rounds to zero has no sign. Infinities are shown as "inf" and "-inf" and NaN as
///   "nan", without the marks of a composite symbol. They cannot be read back.
/// - It never changes, and holds no reference to the engine. Copies share its contents. Any number of
///   threads may use it at once.
///
/// Every function may throw std::bad_alloc, except for copying.
class TRELVONUNITS_API ValueDisplay {
 public:
  /// Checks the options and looks up the records that they name.
  ///
  /// @param engine   any engine. Only const operations are called, and only here.
  /// @param options  how to show values.
  /// @throws UnrecognizedIdentifierException  a type id names no symbol, unit or quantity.
  /// @throws IncompatibleUnitsException       values do not convert to the unit of a symbol.
  /// @throws PrecisionException               more than 12 places.
  /// @throws ValidationException              the options exclude each other or are out of range.
  ValueDisplay(const UnitsEngine& engine, const DisplayOptions& options);

  /// Reads the options from JSON. docs/display.md and display.schema.json describe the members.
  ///
  /// @param engine  as above.
  /// @param json    read up to the first NUL; any bytes.
  /// @throws ValidationException  also "display, LINE:COLUMN: ..." if the text is not JSON, or if a
  ///                              member is unknown, occurs twice or has a value of the wrong type.
  static ValueDisplay fromJson(const UnitsEngine& engine, std::string_view json);

  ValueDisplay(const ValueDisplay& other) noexcept;
  ValueDisplay(ValueDisplay&& other) noexcept;  ///< Copies; `other` stays usable.
  ~ValueDisplay();
  ValueDisplay& operator=(const ValueDisplay&) = delete;

  DisplayOptions options() const;  ///< As given.
  std::string toJson() const;      ///< The options that differ from the defaults, for `fromJson`.

  /// Type id of the unit that values are given in. Empty if there is none.
  std::string unitTypeId() const;

  /// Shows a value.
  ///
  /// @param value  any double, in the display's unit.
  /// @return  UTF-8.
  std::string show(double value) const;

  /// Reads a text of the form that this display shows. It never guesses: a text that could mean
  /// another value is refused.
  ///
  /// - A text that `show` returned is read as the double nearest to what it says.
  /// - A number may have more or fewer digits than the display shows. The text of a single unit may be
  ///   left out. Any spaces may separate the pieces. Both "-" and U+2212 are minus signs.
  /// - Digits must be grouped correctly or not at all. A number with one mark and three digits after
  ///   it, such as "1,234", is read only if the mark is one that the display would write there: a group
  ///   mark if it groups and shows no decimal places, otherwise a decimal mark.
  ///
  /// @param text  any bytes.
  DisplayReading read(std::string_view text) const;

  /// The names of all locales, in byte order. The data comes from CLDR. A name may also carry its
  /// default region, as in "de-DE", and may be written with an underscore, as in "en_GB".
  static std::vector<std::string> locales();

 private:
  explicit ValueDisplay(const DisplayContents* contents) noexcept;

  const Shared<DisplayContents> contents_;
};

}  // namespace Units
