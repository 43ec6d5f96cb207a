#pragma once

#include "tools/trelvon/Arguments.h"
#include "tools/trelvon/Definitions.h"
#include "tools/trelvon/NumberText.h"
#include "tools/trelvon/Output.h"

#include <TrelvonUnits/FormulaExplanation.h>
#include <TrelvonUnits/VariableResolver.h>

#include <optional>
#include <string>

namespace tool {

/// What a command works with, and functions that commands share.
class Context {
 public:
  /// @param shared  the definitions to work with. If null, the context has its own, by the
  ///                arguments.
  Context(const Arguments& arguments, Output& out, Output& errors, Definitions* shared = nullptr);

  const Arguments& arguments;
  Output& out;
  Output& errors;
  Definitions& definitions;

  /// Whether other commands use the same definitions.
  bool isShared() const { return &definitions != &own_; }

  bool wantsJson() const { return arguments.has("json"); }

  /// Writes a warning to standard error.
  void warn(const std::string& sentence) const;

  /// Prints a text as it is, or as the member `text` of an object.
  void print(const std::string& text) const;

  /// The unit of an operand or option.
  Units::Unit unit(const std::string& text);

  /// The number of an operand that is a formula, in a unit or without one.
  /// @throws Failure  the engine refuses it; the message has its explanation.
  double evaluate(const std::string& formula, const std::string* unitTypeId);

  /// The explanation of a formula that the engine accepts. Writes its warnings.
  /// @throws Failure  the formula is refused.
  Units::FormulaExplanation accepted(const Units::FormulaExplanation& explanation) const;

  /// The variables of `--set NAME=TEXT`.
  /// @throws Failure  one has no name.
  VariableResolver variables() const;

  /// How numbers are written, by `--places`, `--fraction`, `--as`, `--tidy`, `--locale` and
  /// `--display`.
  /// @param unit  the unit of the number. If empty, it is set to that of the symbol.
  /// @throws Failure  the symbol shows another unit.
  NumberFormat numberFormat(std::optional<std::string>& unitTypeId);

  /// The display of `--display`, or of `--locale` and the other options.
  /// @throws Failure  it cannot be made.
  Units::ValueDisplay display(const NumberFormat& format);

 private:
  void setSymbol(NumberFormat& format, std::optional<std::string>& unitTypeId);

  Definitions own_;  // loads nothing unless it is asked
};

}  // namespace tool
