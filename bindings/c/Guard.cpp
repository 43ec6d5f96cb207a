#include "bindings/c/Guard.h"

#include "bindings/c/Error.h"

#include <new>

namespace C {

void refuseArgument(const char* why) { throw Fault(TRELVON_ARGUMENT, why); }

trelvon_status failed(trelvon_error** error, trelvon_status logicError) noexcept {
  try {
    const Fault fault = currentFault(logicError);
    if (error != nullptr) *error = new trelvon_error{fault};
    return fault.status;
  } catch (...) {
    if (error != nullptr) *error = outOfMemory();
    return TRELVON_MEMORY;
  }
}

}  // namespace C
