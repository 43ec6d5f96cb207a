#pragma once

#include <TrelvonUnits/trelvon.h>

#include <cstddef>
#include <exception>
#include <optional>
#include <string>
#include <utility>

namespace C {

/// Bytes of a formula.
struct Span {
  std::size_t begin;
  std::size_t end;
};

/// A failure as it is reported to C. Also thrown for faults that the C++ interface does not have.
class Fault : public std::exception {
 public:
  Fault(trelvon_status ofFault, std::string text) : status(ofFault), message(std::move(text)) {}

  const char* what() const noexcept override { return message.c_str(); }

  trelvon_status status;
  std::string message;
  std::optional<Span> span;
};

/// Describes the exception that is being handled, as C reports it.
///
/// @param logicError  the status of std::logic_error itself.
/// @throws std::bad_alloc  if that is the exception, or there is not enough memory for the message.
Fault currentFault(trelvon_status logicError);

}  // namespace C
