#pragma once

#include <string>

namespace tool {

/// The script with which a shell completes command lines of the program.
/// @param shell  bash, zsh or fish.
/// @throws Failure  it is something else.
std::string completionScript(const std::string& shell);

}  // namespace tool
