#pragma once

#include "json/ExceptionFactory.h"

#include <exception>
#include <string>

namespace Units {

/// Creates a ValidationException for every error in a schema text.
class ValidationExceptionFactory final : public ExceptionFactory {
 public:
  std::exception_ptr createException(const std::string& message) override;
};

}  // namespace Units
