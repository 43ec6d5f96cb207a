#pragma once

#include <exception>
#include <string>

/// Turns a message into an exception, for code that finds errors without knowing which class of
/// exception its caller wants.
class ExceptionFactory {
 public:
  virtual ~ExceptionFactory() = default;

  /// A new exception that carries `message`; never null.
  virtual std::exception_ptr createException(const std::string& message) = 0;
};

/// Throws what `factory` makes of `message`.
[[noreturn]] void raiseError(ExceptionFactory& factory, const std::string& message);
