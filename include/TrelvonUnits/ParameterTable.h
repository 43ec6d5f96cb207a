#pragma once

#include <TrelvonUnits/Export.h>
#include <TrelvonUnits/FormulaExplanation.h>
#include <TrelvonUnits/UnitsEngine.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Units {

struct ParameterTableContents;  // known to the library alone

/// Why a parameter has no value, or cannot be referred to.
enum class ParameterProblemKind : std::int32_t {
  Missing = 1,  ///< Its formula refers to undefined names.
  Cycle = 2,    ///< It depends on itself.
  Refused = 3,  ///< Its formula cannot be read or evaluated.
  Hidden = 4,   ///< A symbol added to the engine since then hides the name in formulas.
};

/// A reason why parameters have no value. Its members are part of the binary interface and never
/// change.
struct ParameterProblem {
  ParameterProblemKind kind;  ///< Which reason it is.
  /// The parameter, then the missing names. For a cycle, its parameters in order: each refers to the
  /// next, and the last to the first.
  std::vector<std::string> names;
  std::string message;  ///< What `ParameterTable::value` throws for the first of the names.
};

/// A parameter in an explanation. Its members are part of the binary interface and never change.
struct ParameterExplanation {
  std::string name;        ///< As it was set.
  std::string formula;     ///< As `ParameterTable::formula` gives it.
  std::string unitTypeId;  ///< Empty if it has no unit of its own.
  std::string message;     ///< Why it has no value; empty if it has one.
  /// How its formula was read and evaluated. Absent if a parameter that it refers to has no value.
  /// Such a parameter is a node of kind Variable, with the parameter's value and powers.
  std::optional<FormulaExplanation> explanation;
};

/// Named formulas that refer to each other.
///
///   Units::ParameterTable table(*engine);
///   table.set("width", "2 m");
///   table.set("height", "150", centimeter);   // a plain number is in the parameter's own unit
///   table.set("area", "width * height");
///   table.value("area", squareMeter);         // 3
///   table.set("width", "4 m");
///   table.value("area", squareMeter);         // 6
///
/// - A value has the same bits as the engine's for the name, with a resolver that returns the formula
///   of each parameter, followed by a space and the text of its unit if it is a plain number with a
///   unit of its own. docs/parameters.md says where parentheses matter.
/// - Each formula is read once, when it is set, and evaluated when its value, or one that depends on
///   it, is first needed. A change evaluates again what depends on it, and nothing else. The bounds
///   of Limits.h do not apply: a chain may have any length.
/// - A table can be filled in any order: a formula may refer to undefined names, or to itself through
///   others, until another `set` repairs that. A parameter that depends on such a name or cycle has
///   no value, and the exception names it in full. All other parameters have theirs.
/// - A name begins with a letter or "_" and continues with letters, digits, spaces and the characters
///   _ . : @ # $ & ! ~ | [ ] { }; it does not end with a space. Characters beyond ASCII are letters,
///   except for marks, punctuation and symbols. A name that formulas would read as a function, or as
///   the text of a unit followed by something else, is refused.
/// - The engine must outlive the table. The table stores readings and values. Definitions added to the
///   engine later take effect when `set`, `rename` or `reevaluate` reads a formula again; definitions
///   are never replaced, so stored values stay valid.
/// - An operation that throws leaves the table unchanged.
/// - Const operations may run on several threads at once, as long as no other operation of the table
///   or of the engine runs. They take a lock while they evaluate; after `evaluate` nothing is left to
///   evaluate.
///
/// Any operation may also throw std::bad_alloc.
class TRELVONUNITS_API ParameterTable {
 public:
  /// @param engine  any engine; must outlive the table. The definitions of a host-implemented engine
  ///                are copied now and at each `reevaluate`.
  explicit ParameterTable(const UnitsEngine& engine);
  ~ParameterTable();
  ParameterTable(const ParameterTable&) = delete;
  ParameterTable& operator=(const ParameterTable&) = delete;

  /// Defines a parameter, or replaces its formula and unit.
  ///
  /// @param name        UTF-8.
  /// @param formula     UTF-8, of any length. It must be a whole formula by itself.
  /// @param unitTypeId  the parameter's own unit, or empty if the formula decides. A plain number is
  ///                    taken to be in it. A value of the reciprocal dimension is converted.
  /// @throws ValidationException              the name cannot be used.
  /// @throws UnrecognizedIdentifierException  `unitTypeId` names no unit.
  /// @throws ParseException                   the formula cannot be read.
  void set(const std::string& name, const std::string& formula, const std::string& unitTypeId = {});

  /// Renames a parameter, also in the formulas that refer to it. The rest of their text stays as it
  /// is, and so do all values.
  ///
  /// @throws UnrecognizedIdentifierException  there is no parameter `name`.
  /// @throws ValidationException              the new name cannot be used, or is defined already.
  void rename(const std::string& name, const std::string& newName);

  /// Removes a parameter. Parameters that refer to it have no value until it is set again.
  ///
  /// @throws UnrecognizedIdentifierException  there is no parameter `name`.
  void remove(const std::string& name);

  /// Reads all formulas again, with the engine's current definitions. A parameter whose formula can no
  /// longer be read has no value.
  ///
  /// @throws UnrecognizedIdentifierException  a host-implemented engine has lost a unit.
  void reevaluate();

  /// Evaluates all formulas that need it, and returns how many these were.
  std::size_t evaluate() const;

  /// Returns a parameter's value in its own unit. If it has none, the value must be a plain number.
  ///
  /// @throws UnrecognizedIdentifierException  there is no parameter `name`.
  /// @throws ParseException                   it has no value, or has units and no unit of its own.
  double value(const std::string& name) const;

  /// Returns a parameter's value in a unit, by the rules of `UnitsEngine::evaluateExpressionInUnit`.
  ///
  /// @throws UnrecognizedIdentifierException  there is no parameter `name` or no such unit.
  /// @throws ParseException                   it has no value, or does not fit the unit.
  double value(const std::string& name, const std::string& unitTypeId) const;

  /// Returns the primitive units of a parameter's value and their exponents. Empty for a plain
  /// number. Throws as `value`.
  std::map<std::string, double> powers(const std::string& name) const;

  bool contains(const std::string& name) const;  ///< Whether a parameter is defined.
  std::size_t size() const;                      ///< How many parameters are defined.
  std::vector<std::string> names() const;        ///< Of all, in byte order.

  /// The formula as it was set, with the current names of its parameters.
  /// @throws UnrecognizedIdentifierException  there is no parameter `name`; the same below.
  std::string formula(const std::string& name) const;
  std::string unitTypeId(const std::string& name) const;  ///< Its own unit; empty if it has none.

  /// The names that a formula refers to, defined or not, in byte order.
  std::vector<std::string> references(const std::string& name) const;

  /// The parameters whose formulas refer to a name, which may be undefined, in byte order.
  std::vector<std::string> dependents(const std::string& name) const;

  /// Lists why parameters have no value, by parameter. Of cycles that share parameters, one is listed.
  /// Parameters that merely depend on a listed one are not.
  std::vector<ParameterProblem> problems() const;

  /// Explains a parameter and everything that it depends on, each once, in evaluation order: it comes
  /// last. The formulas are read again for this.
  std::vector<ParameterExplanation> explain(const std::string& name) const;

  /// The same as text for people. docs/parameters.md describes the JSON.
  std::string explainText(const std::string& name) const;
  std::string explainJson(const std::string& name) const;  ///< The same as JSON.

 private:
  const std::unique_ptr<ParameterTableContents> contents_;
};

}  // namespace Units
