#pragma once

#include "json/ExceptionFactory.h"

#include <exception>
#include <string>

namespace Units {

/// Makes every fault of a schema text a ValidationException.
class ValidationExceptionFactory final : public ExceptionFactory {
 public:
  std::exception_ptr createException(const std::string& message) override;
};

}  // namespace Units
