#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace tool {

struct Command;

/// The command line, as read by the descriptions of the commands.
struct Arguments {
  const Command* command = nullptr;  ///< Null for the prompt and the program's help and version.
  std::map<std::string, std::vector<std::string>> options;  ///< Values by name; a flag has one.
  std::vector<std::string> operands;

  bool has(const std::string& option) const { return options.count(option) != 0; }
  std::string text(const std::string& option, const std::string& otherwise = "") const;
  std::optional<int> number(const std::string& option) const;  ///< Empty if it is not given.
  std::vector<std::string> texts(const std::string& option) const;
};

/// Reads a command line.
///
/// Only options that are described are options: `-x`, `-.5 m` and `-(3 m)` are formulas. A text that
/// begins with two hyphens and a letter is an option, unless it comes after `--`. `-h` asks for help
/// if it is the only argument of a command.
///
/// @param words  the command line without the name of the program.
/// @throws Failure  with Status::Usage; its message names the argument.
Arguments readArguments(const std::vector<std::string>& words);

}  // namespace tool
