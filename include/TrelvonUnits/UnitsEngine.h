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
/// units, evaluates formulas, and formats numbers as text.
///
/// - Every definition has a type id, which is unique across all five kinds. Type ids are compared
///   byte by byte, and every map and set is in that order.
/// - Arguments and results are copies: nothing that a host holds points into the engine.
///   Definitions are never replaced or removed.
/// - No result is cached between calls. Within one call, a definition that several others share is
///   worked out once. The cost of a conversion or formula depends on the definitions that its units
///   reach; how many others are stored hardly matters.
/// - An operation that throws leaves the engine unchanged, except `buildSchemas`, which drops what
///   was pending.
/// - An engine takes no locks. Its const operations may run on several threads at once, as long as
///   no other operation runs. Separate engines are independent.
/// - The order of the operations is their slot order, which is part of the binary interface.
///
/// Any operation may also throw std::bad_alloc.
class TRELVONUNITS_API UnitsEngine {
 public:
  /// Virtual, so that `delete` through this class is correct. Records that the engine returned
  /// stay valid.
  virtual ~UnitsEngine();

  /// Converts a number from one unit to another.
  ///
  /// The units must measure the same dimension or exactly reciprocal ones (meters per liter, liters
  /// per meter). An absolute unit, such as a temperature scale, converts only to another absolute
  /// unit.
  ///
  ///   pow((fromOffset + value) * fromFactor, 1 or -1) / toFactor - toOffset
  ///
  /// in doubles, rounded after each step in that order; the exponent is -1 for reciprocal units.
  ///
  ///   convert(6, foot, meter)                       1.8288000000000002: 6 times 0.3048, rounded
  ///   convert(0, degreeCelsius, degreeFahrenheit)   31.999999999999943: offsets round, too
  ///   convert(5, hertz, second)                     0.2, through the reciprocal
  ///
  /// To convert many numbers between the same two units, use `PreparedConversion`.
  ///
  /// @param value           counted in `fromUnitTypeId`; any double. The reciprocal of 0 is an
  ///                        infinity, and NaN stays NaN.
  /// @param fromUnitTypeId  type id of a stored unit; looked up first.
  /// @param toUnitTypeId    type id of a stored unit.
  /// @return  counted in `toUnitTypeId`.
  /// @throws UnrecognizedIdentifierException  an id names no unit.
  /// @throws IncompatibleUnitsException       the dimensions differ, or exactly one of the units is
  ///                                          absolute.
  virtual double convert(double value, std::string fromUnitTypeId,
                         std::string toUnitTypeId) const = 0;

  /// Whether `convert` converts between the two units. The answer is the same in both directions.
  ///
  /// Two primitive units never convert into each other, even if they share a dimension.
  ///
  /// @param fromUnitTypeId  type id of a stored unit; looked up first.
  /// @param toUnitTypeId    type id of a stored unit.
  /// @throws UnrecognizedIdentifierException  an id names no unit.
  virtual bool canConvert(std::string fromUnitTypeId, std::string toUnitTypeId) const = 0;

  /// Formats a number with a fixed number of decimal places and, optionally, a symbol.
  ///
  /// The number is not converted: it must already be in the symbol's unit (for a composite symbol,
  /// in feet, degrees or meters). Halves round away from zero, and a number that rounds to zero has
  /// no sign. The sign comes before everything else, including a prefix.
  ///
  ///   formatFixedPoint(12.5, 2, nullptr, false)                "12.50"
  ///   formatFixedPoint(12.5, 2, nullptr, true)                 "12.5"
  ///   formatFixedPoint(12.5, 2, &kilogramSymbol, false)        "12.50 kg"
  ///   formatFixedPoint(-5, 2, &dollarSymbol, false)            "-$ 5.00"
  ///   formatFixedPoint(-0.004, 2, nullptr, false)              "0.00"
  ///
  /// A composite symbol shows whole numbers of its larger units; only the last part has decimal
  /// places. Rounding the last part does not carry into the one before it.
  ///
  ///   formatFixedPoint(-5.5, 0, &feetAndInchesSymbol, false)   "-5' 6\""
  ///   formatFixedPoint(5.999, 0, &feetAndInchesSymbol, false)  "5' 12\"", not "6' 0\""
  ///
  /// The decimal separator is always a point, and there is no exponent and no digit grouping.
  ///
  /// @param value              any double; an infinity is written as "inf", NaN as "nan".
  /// @param decimalPlaces      0 to 12.
  /// @param symbolTypeId       type id of a stored symbol, or null for the number alone.
  /// @param trimTrailingZeros  drops zeros at the end, and the point if nothing follows it.
  /// @return  UTF-8.
  /// @throws PrecisionException               `decimalPlaces` is greater than 12; checked first.
  /// @throws UnrecognizedIdentifierException  `*symbolTypeId` names no symbol.
  virtual std::string formatFixedPoint(double value, unsigned char decimalPlaces,
                                       const std::string* symbolTypeId,
                                       bool trimTrailingZeros) const = 0;

  /// Formats a number as a whole number and a binary fraction in lowest terms and, optionally, a
  /// symbol. Signs, symbols and composite layouts are as in `formatFixedPoint`.
  ///
  ///   formatFractional(12.5, 1, nullptr)                   "12 1/2"
  ///   formatFractional(0.75, 2, nullptr)                   "3/4"
  ///   formatFractional(0.3, 3, nullptr)                    "1/4", the nearest 1/8
  ///   formatFractional(2, 4, nullptr)                      "2"
  ///   formatFractional(5.53125, 4, &feetAndInchesSymbol)   "5' 6 3/8\""
  ///
  /// @param value         any double, as in `formatFixedPoint`.
  /// @param precision     0 to 9; the number is rounded to a multiple of 2 to the power -precision.
  /// @param symbolTypeId  type id of a stored symbol, or null for the number alone.
  /// @return  UTF-8.
  /// @throws PrecisionException               `precision` is greater than 9; checked first.
  /// @throws UnrecognizedIdentifierException  `*symbolTypeId` names no symbol.
  virtual std::string formatFractional(double value, unsigned char precision,
                                       const std::string* symbolTypeId) const = 0;

  /// Evaluates a formula and returns its value in a unit.
  ///
  /// A formula consists of numbers with or without symbols (`2 ft + 3 in`, `-5' 6" * 2`), the
  /// operators + - * / ^, parentheses, functions (`sqrt(2 m^2 * 8 m^2)`) and identifiers. Only the
  /// texts of stored symbols are recognized as units.
  ///
  ///   evaluateExpressionInUnit(meter, "2 ft + 3 in", {})          0.6858
  ///   evaluateExpressionInUnit(inch, "2", {})                     2: a plain number is taken as is
  ///   evaluateExpressionInUnit(meter, "2 ft + 3 kg", {})          throws ParseException
  ///   evaluateExpressionInUnit(meter, "2 * width", resolver)      6, if `width` resolves to "3 m"
  ///
  /// @param unitTypeId  type id of a stored unit; looked up before the formula is read.
  /// @param formula     UTF-8, of any length.
  /// @param resolver    called for each identifier, every time that it occurs. If the resolver is
  ///                    empty, the first identifier throws std::bad_function_call. An exception
  ///                    from the resolver reaches the caller unchanged.
  /// @return  counted in `unitTypeId`. A result without units is returned as is. A result in the
  ///          reciprocal dimension is converted, as by `convert`.
  /// @throws UnrecognizedIdentifierException  `unitTypeId` names no unit.
  /// @throws ParseException  the formula is malformed; its value cannot be computed (a division by
  ///                         zero, a number outside a function's domain, an overflow); its units do
  ///                         not match in a sum or do not fit `unitTypeId`; or a bound of Limits.h
  ///                         is exceeded.
  virtual double evaluateExpressionInUnit(std::string unitTypeId, std::string formula,
                                          VariableResolver resolver) const = 0;

  /// Evaluates a formula without identifiers; otherwise like the overload above.
  ///
  /// @throws ParseException  also "Unrecognized identifier: ", followed by the identifier, for the
  ///                         first identifier in the formula. A misspelled unit is an identifier:
  ///                         "5 fot" gives "Unrecognized identifier: 5 fot.".
  virtual double evaluateExpressionInUnit(std::string unitTypeId, std::string formula) const = 0;

  /// Evaluates a formula whose result must have no units.
  ///
  ///   evaluateUnitlessExpression("2^3^2", {})            64: operators group from left to right
  ///   evaluateUnitlessExpression("2 m / 1 m + 1", {})    3: the units cancel
  ///   evaluateUnitlessExpression("2 m", {})              throws "Expression must be unitless."
  ///
  /// @param formula   UTF-8, of any length.
  /// @param resolver  as for `evaluateExpressionInUnit`.
  /// @throws ParseException  as for `evaluateExpressionInUnit`, or the result has units.
  virtual double evaluateUnitlessExpression(std::string formula,
                                            VariableResolver resolver) const = 0;

  /// Evaluates a formula without identifiers; otherwise like the overload above.
  ///
  /// @throws ParseException  also "Unrecognized identifier: ", followed by the identifier, for the
  ///                         first identifier in the formula.
  virtual double evaluateUnitlessExpression(std::string formula) const = 0;

  /// Returns a copy of the stored dimension with a type id.
  ///
  /// @param typeId  type id of a stored dimension; for the operations below, of a record
  ///                of their kind.
  /// @throws UnrecognizedIdentifierException  no stored record of that kind has this id. A schema
  ///                                          that is still pending is not found either.
  virtual Dimension getDimension(std::string typeId) const = 0;
  /// The same for a factor.
  virtual Factor getFactor(std::string typeId) const = 0;
  /// The same for a unit.
  virtual Unit getUnit(std::string typeId) const = 0;
  /// The same for a symbol.
  virtual Symbol getSymbol(std::string typeId) const = 0;
  /// The same for a quantity.
  virtual Quantity getQuantity(std::string typeId) const = 0;

  /// Returns copies of all stored dimensions, by type id.
  ///
  /// The cost grows with the number of records. To read one record, use `getUnit` and its like.
  virtual std::map<std::string, Dimension> getDimensions() const = 0;
  /// The same for factors.
  virtual std::map<std::string, Factor> getFactors() const = 0;
  /// The same for units.
  virtual std::map<std::string, Unit> getUnits() const = 0;
  /// The same for symbols.
  virtual std::map<std::string, Symbol> getSymbols() const = 0;
  /// The same for quantities.
  virtual std::map<std::string, Quantity> getQuantities() const = 0;

  /// Returns the primitive units: those that are not defined in terms of others.
  virtual std::map<std::string, Unit> getPrimitiveUnits() const = 0;

  /// Returns the primitive units of a dimension.
  ///
  /// @param dimension  compared by its type id. If empty, the result is the primitive units that
  ///                   have no dimension. A dimension that is not stored gives an empty map.
  virtual std::map<std::string, Unit> getPrimitiveUnitsOfDimension(
      std::optional<Dimension> dimension) const = 0;

  /// Returns the units for which `canConvert` is true, including the unit itself and reciprocal
  /// units.
  ///
  /// Units with equal powers convert into each other whatever they measure: a torque's list holds
  /// joules. To offer a choice to a user, take the units of a quantity instead.
  ///
  /// @param unitTypeId  type id of a stored unit.
  /// @throws UnrecognizedIdentifierException  `unitTypeId` names no unit. If no unit is stored at
  ///                                          all, the result is empty instead.
  virtual std::map<std::string, Unit> getConvertibleUnits(std::string unitTypeId) const = 0;

  /// Returns the units that measure exactly a dimension. Absolute units are included, reciprocal
  /// units are not.
  ///
  ///   getUnitsWithPrimitivePowers({{meter, 1}, {second, -2}})   every unit of acceleration
  ///   getUnitsWithPrimitivePowers({})                           every unit without a dimension
  ///
  /// @param powers  type id of a primitive unit to its exponent. Entries of 0 do not count, but
  ///                their keys must name units, too. With a key that names a derived or absolute
  ///                unit the result is empty, since no unit reduces to such a power.
  /// @throws UnrecognizedIdentifierException  a key names no unit; the first such key is reported.
  virtual std::map<std::string, Unit> getUnitsWithPrimitivePowers(PrimitivePowers powers) const = 0;

  /// Returns the symbols of a unit: those whose unit has this type id. Convertible units do not
  /// count.
  ///
  /// @param unitTypeId  type id of a stored unit.
  /// @throws UnrecognizedIdentifierException  `unitTypeId` names no unit.
  virtual std::map<std::string, Symbol> getSymbolsOfUnit(std::string unitTypeId) const = 0;

  /// Returns the quantities whose list of units contains a unit.
  ///
  /// @param unitTypeId  type id of a stored unit.
  /// @throws UnrecognizedIdentifierException  `unitTypeId` names no unit.
  virtual std::map<std::string, Quantity> getQuantitiesOfUnit(std::string unitTypeId) const = 0;

  /// Stores a dimension.
  ///
  /// @throws ValidationException  the type id is empty, or already taken by a record of any kind or
  ///                              by a pending schema.
  virtual void addDimension(Dimension dimension) = 0;

  /// Stores a factor. Its parents must be stored first.
  ///
  /// @throws ValidationException  the first of these checks that fails, in this order: no parent
  ///                              has exponent 0; each parent is a stored factor; the type id is
  ///                              not empty and not taken.
  virtual void addFactor(Factor factor) = 0;

  /// Stores a unit. Its parents, or its dimension, must be stored first.
  ///
  /// @throws ValidationException  the first of these checks that fails, in this order: the name is
  ///                              not empty; a derived unit has a parent unit; none has exponent 0;
  ///                              each parent unit is stored and relative; no parent factor has
  ///                              exponent 0; each parent factor is stored; the dimension of a
  ///                              primitive unit is stored; the type id is not empty and not taken.
  virtual void addUnit(Unit unit) = 0;

  /// Stores a symbol. Its unit must be stored first.
  ///
  /// Only the type id of the symbol's unit matters: the engine stores the symbol with its own unit
  /// of that type id.
  ///
  /// @throws ValidationException  the first of these checks that fails, in this order: a symbol
  ///                              without a prefix or suffix has the type id of a composite symbol
  ///                              (see `Symbol`); its unit is stored; the type id is not empty and
  ///                              not taken.
  virtual void addSymbol(Symbol symbol) = 0;

  /// Stores a quantity. Its units must be stored first.
  ///
  /// Only the type ids of its units matter: the engine stores the quantity with its own units of
  /// those type ids, in the given order.
  ///
  /// @throws ValidationException  the first of these checks that fails, in this order: the name is
  ///                              not empty; each unit is stored; the type id is not empty and not
  ///                              taken.
  virtual void addQuantity(Quantity quantity) = 0;

  /// Reads a schema text, which is one JSON object, and keeps it pending until `buildSchemas`.
  ///
  /// Definitions may arrive in any order: references are resolved when the schemas are built. A
  /// pending schema takes its type id, but no other operation finds it yet.
  ///
  ///   const std::set<std::string> missing = engine.addDefinition(footSchema);
  ///   // {"example.unit:meter-1.0.0"}, if that unit has not been added yet
  ///
  /// @param schemaText  UTF-8; read up to the first NUL byte. docs/schema-format.md describes it.
  /// @return  the type ids that the schema refers to and that are neither stored nor pending. The
  ///          set is only information: the build fails if they are still missing then.
  /// @throws ValidationException  the text is not a valid schema of a known kind, or its type id is
  ///                              already taken.
  virtual std::set<std::string> addDefinition(const std::string& schemaText) = 0;

  /// Turns all pending schemas into stored records, all or none.
  ///
  /// If the build fails, for whatever reason, all schemas that were pending are dropped and their
  /// type ids are free again. Records that were stored before stay. With nothing pending, the call
  /// does nothing.
  ///
  /// @throws ValidationException  a schema refers to a definition that is missing or of the wrong
  ///                              kind, has an absolute unit as a parent, or is its own ancestor.
  ///                              The kinds are built and checked in a fixed order and in order of
  ///                              type id, and the first violation is reported.
  virtual void buildSchemas() = 0;

  /// Returns a stored definition as schema text, in a form that `addDefinition` reads.
  ///
  /// @param typeId  type id of a stored record of any kind. A pending schema is not found.
  /// @return  compact JSON. Each double is in a short form whose nearest double it is. (A number
  ///          that is read back may differ in the last place: the JSON parser does not always round
  ///          correctly.)
  /// @throws UnrecognizedIdentifierException  no stored record has this type id.
  /// @throws ValidationException              a factor or offset is infinite or NaN, which JSON
  ///                                          cannot hold.
  virtual std::string getDefinition(std::string typeId) const = 0;

  /// Returns the type ids of all definitions that a stored one depends on, directly or through
  /// others. The id itself is not among them.
  ///
  /// A kilometer may depend on a meter, a factor kilo and a dimension length. A dimension depends
  /// on nothing. For a pending schema the result is empty.
  ///
  /// @param typeId  type id of a stored record or of a pending schema.
  /// @throws UnrecognizedIdentifierException  the type id is not registered.
  virtual std::set<std::string> getDependencies(std::string typeId) const = 0;

  /// Whether a type id is taken, by a stored record of any kind or by a pending schema.
  virtual bool isRegistered(std::string typeId) const = 0;
};

/// Creates an empty engine. The caller owns it and destroys it with `delete`.
///
///   const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
TRELVONUNITS_API UnitsEngine* CreateUnitsEngine();

}  // namespace Units
