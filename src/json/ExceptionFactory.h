#pragma once

#include <exception>
#include <string>

/// Turns a message into an exception. For code that finds errors but does not know which class of
/// exception its caller wants.
class ExceptionFactory {
 public:
  virtual ~ExceptionFactory() = default;

  /// A new exception that carries `message`; never null.
  virtual std::exception_ptr createException(const std::string& message) = 0;
};

/// Throws what `factory` makes of `message`.
[[noreturn]] void raiseError(ExceptionFactory& factory, const std::string& message);
