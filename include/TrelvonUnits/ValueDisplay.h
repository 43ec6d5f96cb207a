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

/// How values are shown. At most one of `places`, `denominator` and `significant` is given; without
/// any, values are tidy: 15 significant digits, without zeros at the end. The members are part of
/// the binary interface and stay as they are.
struct DisplayOptions {
  /// The sign of negative numbers.
  enum class Minus : std::int32_t {
    OfLocale = 0,
    Hyphen = 1,  ///< "-", U+002D
    Sign = 2,    ///< U+2212
  };

  /// Type id of the unit in which values are counted. If empty, it is the symbol's.
  std::string unit;

  /// Type id of the symbol, plain or composite. If its unit is another one, values are converted to
  /// it. If empty, it is the first symbol of `unit` with a text, in order of type ids; without a
  /// unit, too, the number stands alone.
  std::string symbol;

  bool showsUnit = true;  ///< Whether the text of the symbol is shown.

  std::optional<int> places;       ///< Decimal places, 0 to 12.
  std::optional<int> denominator;  ///< Of fractions: 1, 2, 4, 8 ... 512.
  std::optional<int> significant;  ///< Significant digits, 1 to 17.

  bool trims = false;   ///< Whether to leave out zeros at the end, behind the decimal mark.
  bool groups = false;  ///< Whether to group the digits of whole numbers.

  std::string locale = "en";  ///< One of `ValueDisplay::locales`.
  std::string decimalMark;    ///< Instead of the locale's: "." or "," or U+066B.
  std::string groupMark;      ///< Instead of the locale's: "." "," " " U+00A0 U+202F U+2019 U+066C.
  Minus minus = Minus::OfLocale;  ///< How the sign is written.
  bool hasNoBreakSpaces = false;  ///< Whether each U+0020 is U+00A0, so that no line ends there.

  /// Type ids of plain symbols to choose from: the largest unit in which a value is at least
  /// `leastBest` is shown, also if it is only when it is rounded. Of no such unit, the smallest one.
  std::vector<std::string> bestSymbols;
  /// Type id of a quantity from which to take `bestSymbols`: those of its units that belong to the
  /// system of the value's unit and are 1000 times as large or small, or 1000000 times and so on.
  std::string bestQuantity;
  double leastBest = 1.0;  ///< Above 0.
};

/// What a piece of a text is that was read.
enum class DisplayPieceKind : std::int32_t { Sign = 1, Number = 2, Fraction = 3, Unit = 4 };

/// A piece of a text that was read. Its members are part of the binary interface and stay as they
/// are.
struct DisplayPiece {
  DisplayPieceKind kind = DisplayPieceKind::Number;  ///< What it is.
  FormulaSpan span;                                  ///< In the text, whose index is 0.
};

/// What a text is to a display: a value, or a refusal. Copies share their contents.
class TRELVONUNITS_API DisplayReading {
 public:
  DisplayReading(const DisplayReading& other) noexcept;
  DisplayReading(DisplayReading&& other) noexcept;  ///< Copies.
  ~DisplayReading();
  DisplayReading& operator=(const DisplayReading&) = delete;

  bool isRead() const;   ///< Whether there is a value.
  double value() const;  ///< Counted in the display's unit. NaN if it was refused.
  std::vector<DisplayPiece> pieces() const;  ///< What was read, up to a refusal, in order.

  FormulaSpan span() const;             ///< What was refused; otherwise the whole text.
  const std::string& sentence() const;  ///< Says for people why. Empty if it was read.
  /// The numbers that the refused one may be, if it has two readings: first with the point as the
  /// decimal mark, then with the comma. They are numbers as written, without a sign or a unit.
  std::vector<double> readings() const;

  /// Everything, as one JSON object, which docs/display.md describes.
  std::string toJson() const;

 private:
  friend class ValueDisplay;
  explicit DisplayReading(const DisplayReadingContents* contents) noexcept;

  const Shared<DisplayReadingContents> contents_;
};

/// Shows values of a unit as people write them, and reads such texts.
///
///   Units::DisplayOptions options;
///   options.symbol = "trelvon.symbol:feetAndInches-1.0.0";
///   options.denominator = 16;
///   const Units::ValueDisplay display(*engine, options);
///   display.show(5.9999);                // 6' 0", where the engine writes 5' 12"
///   display.read("5' 6 3/8\"").value();  // 5.53125
///
/// - Values are rounded to steps of what is shown last (sixteenths of an inch) before they are split
///   into parts, so a part is never as large as the part before it.
/// - Halves round away from zero, by the engine's rule: plain symbols with `places` or `denominator`
///   show the digits of `formatFixedPoint` and `formatFractional`. From 2^50 steps on, the exact
///   value is rounded and all its digits are right.
/// - A number that rounds to zero has no sign. Infinities are "inf" and "-inf", NaN is "nan", without
///   marks of a composite symbol; they are not read.
/// - It never changes and holds no reference to the engine. Copies share what it has, and any number
///   of threads may use it.
///
/// Any function but copying may throw std::bad_alloc.
class TRELVONUNITS_API ValueDisplay {
 public:
  /// Checks the options, and looks up what they name.
  ///
  /// @param engine   any engine; only its const operations are called, and only here.
  /// @param options  how to show values.
  /// @throws UnrecognizedIdentifierException  a type id names no symbol, unit or quantity.
  /// @throws IncompatibleUnitsException       values do not convert to the unit of a symbol.
  /// @throws PrecisionException               more than 12 places.
  /// @throws ValidationException              the options exclude each other or are out of range.
  ValueDisplay(const UnitsEngine& engine, const DisplayOptions& options);

  /// Reads options from JSON, as docs/display.md and the JSON Schema display.schema.json describe it.
  ///
  /// @param engine  as above.
  /// @param json    read up to the first NUL; any bytes.
  /// @throws ValidationException  also "display, LINE:COLUMN: ...": the text is no JSON, or a member
  ///                              is unknown, occurs twice or has a value of a wrong kind.
  static ValueDisplay fromJson(const UnitsEngine& engine, std::string_view json);

  ValueDisplay(const ValueDisplay& other) noexcept;
  ValueDisplay(ValueDisplay&& other) noexcept;  ///< Copies; `other` stays usable.
  ~ValueDisplay();
  ValueDisplay& operator=(const ValueDisplay&) = delete;

  DisplayOptions options() const;  ///< As given.
  std::string toJson() const;      ///< The options that differ from the defaults, for `fromJson`.

  /// Type id of the unit in which values are counted; empty if there is none.
  std::string unitTypeId() const;

  /// Shows a value.
  ///
  /// @param value  any double, counted in the display's unit.
  /// @return  UTF-8.
  std::string show(double value) const;

  /// Reads a text as this display shows values, which never gives another value than the text has:
  /// what might be meant otherwise is refused.
  ///
  /// - What `show` returns is read as the double nearest to what the text says.
  /// - A number may have more digits than are shown, or fewer. The text of a single unit may be left
  ///   out. Any spaces may separate the pieces, and "-" and U+2212 are both a minus sign.
  /// - Digits are grouped rightly or not at all. A number with one mark and three digits behind it,
  ///   such as "1,234", is read only if the mark is what the display shows: a group mark, if it groups
  ///   and shows no decimal places, or else a decimal mark.
  ///
  /// @param text  any bytes.
  DisplayReading read(std::string_view text) const;

  /// The names of all locales, in byte order. Their facts are those of CLDR. A name with the region
  /// that it has by default, "de-DE", is a locale, too, and so is one with an underscore.
  static std::vector<std::string> locales();

 private:
  explicit ValueDisplay(const DisplayContents* contents) noexcept;

  const Shared<DisplayContents> contents_;
};

}  // namespace Units
