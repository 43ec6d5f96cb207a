#pragma once

#include <stdexcept>
#include <string>

namespace tool {

/// The exit status of the program.
enum class Status {
  Done = 0,
  Findings = 1,  ///< There is something to report, or a value is refused.
  Usage = 2,     ///< The command line is not understood.
  Files = 3,     ///< A file or folder cannot be read or written.
};

/// Ends a command with one message, which names the argument or file that is to blame.
class Failure : public std::runtime_error {
 public:
  Failure(Status status, const std::string& message)
      : std::runtime_error(message), status_(status) {}

  Status status() const { return status_; }

 private:
  Status status_;
};

}  // namespace tool
