#pragma once

#include "tools/trelvon/Context.h"
#include "tools/trelvon/Failure.h"
#include "tools/trelvon/prompt/Completions.h"

#include <cstddef>
#include <map>
#include <string>
#include <string_view>

namespace tool {

/// What the line `help` prints.
extern const char* const promptHelp;

/// Executes the lines of a prompt: formulas, variables, questions about the last formula, and
/// commands of the program.
class Session {
 public:
  /// @param start  the context of the program, whose definitions and options are used.
  explicit Session(Context& start) : start_(start) {}

  /// @throws Failure  the line is refused. The engine's exceptions pass through.
  Status run(const std::string& line);

  bool hasEnded() const { return hasEnded_; }  ///< Whether a line has ended the session.

  /// Completes a line up to the cursor.
  Completions complete(std::string_view before) const;

 private:
  using Variables = std::map<std::string, std::string>;

  /// A formula with the variables that it was read with.
  struct Formula {
    std::string text;
    Variables variables;
    std::size_t place = 0;  ///< Of the unit that its value was shown in, in the quantity's list.
  };

  Arguments argumentsOf(const char* command, const Formula& formula) const;
  Status evaluate(const Formula& formula);
  Status assign(const std::string& name, const std::string& text);
  Status explainLast();
  Status showLastIn(const std::string& unit);
  Status runCommand(const std::string& line);

  Context& start_;
  Variables variables_;
  Formula last_;
  bool hasEnded_ = false;
};

}  // namespace tool
