#pragma once

#include <string>

namespace tool {

struct Command;
struct Option;

inline constexpr const char* exitStatusText =
    "0 success, 1 findings or a refused value, 2 an invalid command line, "
    "3 files that cannot be read or written.";

std::string optionUsage(const Option& option);  ///< "--to UNIT"
std::string optionText(const Option& option);   ///< What it does, and which values it takes.

/// The text of `trelvon --help`.
std::string programHelp();

/// The text of `trelvon COMMAND --help`.
std::string commandHelp(const Command& command);

}  // namespace tool
