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
  Missing = 1,  ///< Its formula refers to names that are not defined.
  Cycle = 2,    ///< It depends on itself.
  Refused = 3,  ///< Its formula cannot be read or evaluated.
  Hidden = 4,   ///< The engine has learned a symbol since; formulas read the name as its text.
};

/// One cause why parameters have no value. Its members are part of the binary interface and stay as
/// they are.
struct ParameterProblem {
  ParameterProblemKind kind;  ///< Which cause it is.
  /// The parameter, then the missing names. Of a cycle, its parameters in order, each of which refers
  /// to the next one, and the last one to the first.
  std::vector<std::string> names;
  std::string message;  ///< What `ParameterTable::value` throws for the first of the names.
};

/// A parameter in an explanation. Its members are part of the binary interface and stay as they are.
struct ParameterExplanation {
  std::string name;        ///< As it was set.
  std::string formula;     ///< As `ParameterTable::formula` gives it.
  std::string unitTypeId;  ///< Empty if it has no unit of its own.
  std::string message;     ///< Why it has no value; empty if it has one.
  /// How its formula was read and evaluated. Absent if what it refers to has no value. A parameter
  /// that it refers to is a node of kind Variable, which has the value and powers of that parameter.
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
/// - A value has the bits that the engine gives for the name with a resolver that returns the
///   formula of each parameter, behind which " " and the text of its unit stand if it is a plain
///   number with a unit of its own. docs/parameters.md says where parentheses matter.
/// - Each formula is read once, when it is set, and is evaluated when its value or one that depends
///   on it is asked for. What depends on a change is evaluated again, and nothing else. The bounds of
///   Limits.h do not apply: a chain may have any length.
/// - A formula may refer to names that are not defined, and to itself through others, because another
///   `set` may cure that: a table can be filled in any order. What such a name or cycle concerns has
///   no value, and the exception names it in full. Everything else has its value.
/// - A name begins with a letter or "_" and goes on with letters, digits, spaces and the characters
///   _ . : @ # $ & ! ~ | [ ] { }; it does not end with a space. Characters beyond ASCII are letters,
///   except for marks, punctuation and symbols. A name that formulas read as a function, or as the
///   text of a unit with something behind it, is refused.
/// - The engine must outlive the table. Values and readings are stored. If the engine has learned
///   definitions since, they stay as they are until `set`, `rename` or `reevaluate` reads the formula
///   again; definitions are never replaced, so they stay true to what was read.
/// - An operation that throws leaves the table as it was.
/// - Const operations may run on several threads at once, as long as no other operation of the table
///   or of the engine runs: they evaluate what is due one at a time, under a lock. After `evaluate`
///   none is due.
///
/// Any operation may also throw std::bad_alloc.
class TRELVONUNITS_API ParameterTable {
 public:
  /// @param engine  any engine; must outlive the table. Of one that the library has not made, the
  ///                definitions are copied now and at each `reevaluate`.
  explicit ParameterTable(const UnitsEngine& engine);
  ~ParameterTable();
  ParameterTable(const ParameterTable&) = delete;
  ParameterTable& operator=(const ParameterTable&) = delete;

  /// Defines a parameter, or replaces its formula and unit.
  ///
  /// @param name        UTF-8.
  /// @param formula     UTF-8, of any length. It must be a whole formula by itself.
  /// @param unitTypeId  the unit that the parameter is counted in; empty if its formula decides. A
  ///                    plain number is taken to be in it. A value in the reciprocal dimension is
  ///                    converted.
  /// @throws ValidationException              the name cannot be used.
  /// @throws UnrecognizedIdentifierException  `unitTypeId` names no unit.
  /// @throws ParseException                   the formula cannot be read.
  void set(const std::string& name, const std::string& formula, const std::string& unitTypeId = {});

  /// Gives a parameter another name, also where formulas refer to it. Nothing else in their text
  /// changes, and what has a value keeps it.
  ///
  /// @throws UnrecognizedIdentifierException  there is no parameter `name`.
  /// @throws ValidationException              the new name cannot be used, or is defined already.
  void rename(const std::string& name, const std::string& newName);

  /// Removes a parameter. Those that refer to it have no value until it is defined again.
  ///
  /// @throws UnrecognizedIdentifierException  there is no parameter `name`.
  void remove(const std::string& name);

  /// Reads all formulas anew with the definitions that the engine has now. A formula that can no
  /// longer be read has no value.
  ///
  /// @throws UnrecognizedIdentifierException  a host-implemented engine has lost a unit.
  void reevaluate();

  /// Evaluates all formulas whose values are due. Returns how many were evaluated.
  std::size_t evaluate() const;

  /// Returns a parameter's value in its own unit; of one without a unit of its own, the value of a
  /// plain number.
  ///
  /// @throws UnrecognizedIdentifierException  there is no parameter `name`.
  /// @throws ParseException                   it has no value, or has units and no unit of its own.
  double value(const std::string& name) const;

  /// Returns a parameter's value in a unit, as `UnitsEngine::evaluateExpressionInUnit` does.
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

  /// As it was set, with the names that its parameters have now.
  /// @throws UnrecognizedIdentifierException  there is no parameter `name`; the same below.
  std::string formula(const std::string& name) const;
  std::string unitTypeId(const std::string& name) const;  ///< Its own unit; empty if it has none.

  /// The names that a formula refers to, in byte order, whether they are defined or not.
  std::vector<std::string> references(const std::string& name) const;

  /// The parameters whose formulas refer to a name, in byte order. The name need not be defined.
  std::vector<std::string> dependents(const std::string& name) const;

  /// Lists every cause why a parameter has no value, by parameter, and of cycles that share
  /// parameters one. Parameters that only depend on such a one are not listed.
  std::vector<ParameterProblem> problems() const;

  /// Explains a parameter and all that it depends on, each once, in evaluation order: it comes last.
  /// The formulas are read anew for this.
  std::vector<ParameterExplanation> explain(const std::string& name) const;

  /// The same as text for people, and as JSON, which docs/parameters.md describes.
  std::string explainText(const std::string& name) const;
  std::string explainJson(const std::string& name) const;  ///< See `explainText`.

 private:
  const std::unique_ptr<ParameterTableContents> contents_;
};

}  // namespace Units
