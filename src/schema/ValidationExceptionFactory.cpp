#include "schema/ValidationExceptionFactory.h"

#include <TrelvonUnits/Exceptions.h>

namespace Units {

std::exception_ptr ValidationExceptionFactory::createException(const std::string& message) {
  return std::make_exception_ptr(ValidationException(message));
}

}  // namespace Units
