#pragma once

#include "tools/trelvon/Arguments.h"
#include "tools/trelvon/Failure.h"

#include <cstddef>
#include <limits>
#include <string>
#include <vector>

namespace tool {

class Context;

/// Any number of operands.
inline constexpr std::size_t anyNumber = std::numeric_limits<std::size_t>::max();

/// The range of an option that is a whole number. Without one, the option is a text.
struct Range {
  int lowest = 0;
  int highest = -1;
};

struct Option {
  std::string name;                        ///< Without the two hyphens.
  std::string value;                       ///< What its value stands for. Empty for a flag.
  std::string text;                        ///< What it does.
  bool isRepeatable = false;               ///< Whether it may be given several times.
  Range range = {};                        ///< Of a number.
  std::vector<std::string> choices = {};   ///< The only values, if there are any.
  std::vector<std::string> excludes = {};  ///< Options that it cannot be combined with.
};

/// A command line as one types it in a shell, and what it prints. The tests run it.
struct Example {
  std::string line;
  std::string printed;
};

/// Everything about a command: the only source for reading its arguments, for --help, for
/// completion and for manual pages.
struct Command {
  std::string name;
  std::string operands;  ///< As the usage line shows them.
  std::size_t least = 0, most = 0;
  std::string summary = {};  ///< One line.
  std::string details = {};
  std::vector<Option> options = {};
  std::vector<Example> examples = {};
  Status (*run)(Context& context) = nullptr;
  bool isHidden = false;  ///< Whether --help and the prompt leave it out.
};

/// All commands, in the order of the help.
const std::vector<Command>& commands();

/// Null if there is no such command.
const Command* findCommand(const std::string& name);

/// The options that every command has.
const std::vector<Option>& commonOptions();

}  // namespace tool
