#pragma once

#include <string>

namespace tool {

struct Command;

/// The text of `trelvon --help`.
std::string programHelp();

/// The text of `trelvon COMMAND --help`.
std::string commandHelp(const Command& command);

}  // namespace tool
