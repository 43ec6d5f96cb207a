#pragma once

#include <TrelvonUnits/Dimension.h>
#include <TrelvonUnits/Exceptions.h>
#include <TrelvonUnits/Export.h>
#include <TrelvonUnits/Factor.h>
#include <TrelvonUnits/PrimitivePowers.h>
#include <TrelvonUnits/Quantity.h>
#include <TrelvonUnits/Symbol.h>
#include <TrelvonUnits/Unit.h>
#include <TrelvonUnits/VariableResolver.h>

#include <map>
#include <optional>
#include <set>
#include <string>

namespace Units {

/// Holds definitions (dimensions, factors, units, symbols, quantities), converts numbers between
/// units, evaluates formulas and writes numbers as text.
///
/// - Every definition is named by a type id, unique across all five kinds. Maps are ordered by type
///   id, byte by byte.
/// - What goes in is copied, and so is what comes out: nothing that a host holds points into the
///   engine. Definitions are never replaced or removed.
/// - No result is kept from one call to the next.
/// - An operation that throws leaves the engine as it was, except `buildSchemas`, which see.
/// - An engine takes no locks. Its const operations may run side by side on several threads as long
///   as no other operation runs; separate engines are independent.
/// - The operations stand in slot order, which is part of the binary interface.
///
/// Any operation may also throw std::bad_alloc.
class TRELVONUNITS_API UnitsEngine {
 public:
  virtual ~UnitsEngine();

  /// Converts a number from one unit to another.
  ///
  /// The units must measure the same dimension or exactly reciprocal ones (meters per liter, liters
  /// per meter). A unit with an offset, such as a temperature scale, converts only to another such.
  ///
  ///   pow((fromOffset + value) * fromFactor, 1 or -1) / toFactor - toOffset
  ///
  /// in doubles, rounded after each step in that order; the exponent is -1 for reciprocal units.
  ///
  /// @param value           counted in `fromUnitTypeId`; any double. A reciprocal of 0 is infinite.
  /// @param fromUnitTypeId  type id of a stored unit; looked up first.
  /// @param toUnitTypeId    type id of a stored unit.
  /// @return  counted in `toUnitTypeId`.
  /// @throws UnrecognizedIdentifierException  an id names no unit.
  /// @throws IncompatibleUnitsException       different dimensions, or only one has an offset.
  virtual double convert(double value, std::string fromUnitTypeId,
                         std::string toUnitTypeId) const = 0;

  /// Whether `convert` would convert between the two units.
  ///
  /// @throws UnrecognizedIdentifierException  an id names no unit; `fromUnitTypeId` is looked up
  ///                                          first.
  virtual bool canConvert(std::string fromUnitTypeId, std::string toUnitTypeId) const = 0;

  /// Writes a number with a fixed count of decimal places, and a symbol if one is given.
  ///
  /// The number is not converted: it is taken to be in the symbol's unit (for a composite symbol,
  /// in feet, degrees or meters). Halves round away from zero, and a number that rounds to zero has
  /// no sign. The sign stands before everything: `-$ 5.00`.
  ///
  ///   formatFixedPoint(12.5, 2, &kilogramSymbol, false)        "12.50 kg"
  ///   formatFixedPoint(12.5, 2, nullptr, true)                 "12.5"
  ///   formatFixedPoint(-5.5, 0, &feetAndInchesSymbol, false)   "-5' 6\""
  ///
  /// @param value              any double; infinity is written as "inf", what is not a number as
  ///                           "nan".
  /// @param decimalPlaces      0 to 12.
  /// @param symbolTypeId       type id of a stored symbol, or null for the bare number.
  /// @param trimTrailingZeros  drops zeros at the end, and the point when nothing follows it.
  /// @throws PrecisionException               `decimalPlaces` is over 12; tested first.
  /// @throws UnrecognizedIdentifierException  `*symbolTypeId` names no symbol.
  virtual std::string formatFixedPoint(double value, unsigned char decimalPlaces,
                                       const std::string* symbolTypeId,
                                       bool trimTrailingZeros) const = 0;

  /// Writes a number as a whole number and a binary fraction in lowest terms, and a symbol if one
  /// is given. Otherwise like `formatFixedPoint`.
  ///
  ///   formatFractional(12.5, 1, nullptr)                   "12 1/2"
  ///   formatFractional(5.53125, 4, &feetAndInchesSymbol)   "5' 6 3/8\""
  ///
  /// @param value         any double.
  /// @param precision     0 to 9; the number is rounded to a multiple of 2 to the power -precision.
  /// @param symbolTypeId  type id of a stored symbol, or null for the bare number.
  /// @throws PrecisionException               `precision` is over 9; tested first.
  /// @throws UnrecognizedIdentifierException  `*symbolTypeId` names no symbol.
  virtual std::string formatFractional(double value, unsigned char precision,
                                       const std::string* symbolTypeId) const = 0;

  /// Evaluates a formula and gives its value in a unit.
  ///
  /// A formula holds numbers with or without symbols (`2 ft + 3 in`, `-5' 6" * 2`), the operators
  /// + - * / ^, parentheses, functions (`sqrt(2 m^2 * 8 m^2)`) and identifiers. A result without
  /// units is taken to be in the requested unit already.
  ///
  /// @param unitTypeId  type id of a stored unit; looked up before the formula is read.
  /// @param formula     UTF-8.
  /// @param resolver    called for each identifier; an empty one throws std::bad_function_call at
  ///                    the first. What it throws passes through.
  /// @throws UnrecognizedIdentifierException  `unitTypeId` names no unit.
  /// @throws ParseException  the formula cannot be read or computed, or its units do not fit.
  virtual double evaluateExpressionInUnit(std::string unitTypeId, std::string formula,
                                          VariableResolver resolver) const = 0;

  /// The same for a formula without identifiers.
  ///
  /// @throws ParseException  "Unrecognized identifier: " and the first identifier, besides the
  ///                         causes above.
  virtual double evaluateExpressionInUnit(std::string unitTypeId, std::string formula) const = 0;

  /// Evaluates a formula whose result has no units.
  ///
  /// @param formula   UTF-8.
  /// @param resolver  as for `evaluateExpressionInUnit`.
  /// @throws ParseException  the formula cannot be read or computed, or its result has units.
  virtual double evaluateUnitlessExpression(std::string formula,
                                            VariableResolver resolver) const = 0;

  /// The same for a formula without identifiers.
  ///
  /// @throws ParseException  "Unrecognized identifier: " and the first identifier, besides the
  ///                         causes above.
  virtual double evaluateUnitlessExpression(std::string formula) const = 0;

  /// The stored record of each kind that a type id names.
  ///
  /// @throws UnrecognizedIdentifierException  no record of that kind has this id. A schema that is
  ///                                          pending is not found.
  virtual Dimension getDimension(std::string typeId) const = 0;
  virtual Factor getFactor(std::string typeId) const = 0;
  virtual Unit getUnit(std::string typeId) const = 0;
  virtual Symbol getSymbol(std::string typeId) const = 0;
  virtual Quantity getQuantity(std::string typeId) const = 0;

  /// All stored records of each kind by type id.
  virtual std::map<std::string, Dimension> getDimensions() const = 0;
  virtual std::map<std::string, Factor> getFactors() const = 0;
  virtual std::map<std::string, Unit> getUnits() const = 0;
  virtual std::map<std::string, Symbol> getSymbols() const = 0;
  virtual std::map<std::string, Quantity> getQuantities() const = 0;

  /// The units that are not expressed through others.
  virtual std::map<std::string, Unit> getPrimitiveUnits() const = 0;

  /// The primitive units of a dimension, or those without any when `dimension` is empty.
  virtual std::map<std::string, Unit> getPrimitiveUnitsOfDimension(
      std::optional<Dimension> dimension) const = 0;

  /// The units that `canConvert` accepts for a unit, itself and reciprocal ones included.
  ///
  /// @throws UnrecognizedIdentifierException  `unitTypeId` names no unit, unless no unit is stored
  ///                                          at all: then the result is empty.
  virtual std::map<std::string, Unit> getConvertibleUnits(std::string unitTypeId) const = 0;

  /// The units that measure exactly a dimension: absolute units included, reciprocal ones not.
  ///
  /// @param powers  primitive unit to exponent; entries of 0 are ignored, and an empty map asks for
  ///                the units without a net dimension.
  /// @throws UnrecognizedIdentifierException  a key names no unit; the first in byte order.
  virtual std::map<std::string, Unit> getUnitsWithPrimitivePowers(PrimitivePowers powers) const = 0;

  /// The symbols that show a unit.
  ///
  /// @throws UnrecognizedIdentifierException  `unitTypeId` names no unit.
  virtual std::map<std::string, Symbol> getSymbolsOfUnit(std::string unitTypeId) const = 0;

  /// The quantities that list a unit.
  ///
  /// @throws UnrecognizedIdentifierException  `unitTypeId` names no unit.
  virtual std::map<std::string, Quantity> getQuantitiesOfUnit(std::string unitTypeId) const = 0;

  /// Stores a dimension.
  ///
  /// @throws ValidationException  the type id is empty or taken.
  virtual void addDimension(Dimension dimension) = 0;

  /// Stores a factor.
  ///
  /// @throws ValidationException  a parent's exponent is 0, a parent is not a stored factor (tested
  ///                              first), or the type id is empty or taken.
  virtual void addFactor(Factor factor) = 0;

  /// Stores a unit.
  ///
  /// @throws ValidationException  the name is empty; a derived unit has no parents or one with
  ///                              exponent 0; a parent unit is unknown or absolute; a parent factor
  ///                              is unknown or has exponent 0; a dimension is unknown (tested
  ///                              first); or the type id is empty or taken.
  virtual void addUnit(Unit unit) = 0;

  /// Stores a symbol, with the engine's own unit of the type id that the symbol's unit has.
  ///
  /// @throws ValidationException  a symbol without prefix or suffix is not named as a composite;
  /// its
  ///                              unit is unknown (tested first); or the type id is empty or taken.
  virtual void addSymbol(Symbol symbol) = 0;

  /// Stores a quantity, with the engine's own units of the type ids that its units have.
  ///
  /// @throws ValidationException  the name is empty; a unit is unknown (tested first); or the type
  ///                              id is empty or taken.
  virtual void addQuantity(Quantity quantity) = 0;

  /// Reads a schema text, one JSON object, and keeps it until `buildSchemas`.
  ///
  /// Definitions may arrive in any order; what a schema refers to is looked for when it is built.
  ///
  /// @param schemaText  UTF-8; read up to the first NUL.
  /// @return  the type ids that the schema refers to and that are not registered yet.
  /// @throws ValidationException  the text is no schema of a known kind, or its type id is taken.
  virtual std::set<std::string> addDefinition(const std::string& schemaText) = 0;

  /// Turns all pending schemas into stored records.
  ///
  /// @throws ValidationException  a schema's parents or units are missing, of the wrong kind or in
  /// a
  ///                              circle; the first fault by kind and type id. All schemas that
  ///                              were pending are dropped then, and their type ids are free again;
  ///                              what was stored before stays. The same holds for std::bad_alloc.
  virtual void buildSchemas() = 0;

  /// A stored definition as schema text.
  ///
  /// @return  compact JSON, each double in a short form whose nearest double it is. (Read again, it
  ///          may come out a unit in the last place off: the reader does not always round right.)
  /// @throws UnrecognizedIdentifierException  nothing stored has this type id.
  /// @throws ValidationException  a factor or offset is infinite or not a number, which JSON cannot
  ///                              hold.
  virtual std::string getDefinition(std::string typeId) const = 0;

  /// The type ids of all definitions that a stored one rests on, directly or through others. Empty
  /// for a dimension and for a schema that is pending.
  ///
  /// @throws UnrecognizedIdentifierException  the type id is not registered.
  virtual std::set<std::string> getDependencies(std::string typeId) const = 0;

  /// Whether a type id is taken, by a stored record or by a pending schema.
  virtual bool isRegistered(std::string typeId) const = 0;
};

/// Makes an empty engine. The caller owns it and destroys it with `delete`.
TRELVONUNITS_API UnitsEngine* CreateUnitsEngine();

}  // namespace Units
