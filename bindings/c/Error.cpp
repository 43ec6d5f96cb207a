#include "bindings/c/Error.h"

#include "bindings/c/Text.h"

namespace C {
namespace {

trelvon_error lastResort{Fault(TRELVON_MEMORY, "Out of memory.")};

}  // namespace

trelvon_error* outOfMemory() noexcept { return &lastResort; }

}  // namespace C

trelvon_status trelvon_error_status(const trelvon_error* error) {
  return error == nullptr ? TRELVON_OK : error->fault.status;
}

trelvon_text trelvon_error_message(const trelvon_error* error) {
  return error == nullptr ? trelvon_text{} : C::textOf(error->fault.message);
}

int trelvon_error_span(const trelvon_error* error, size_t* begin, size_t* end) {
  if (error == nullptr || !error->fault.span) return 0;
  if (begin != nullptr) *begin = error->fault.span->begin;
  if (end != nullptr) *end = error->fault.span->end;
  return 1;
}

void trelvon_error_free(trelvon_error* error) {
  if (error != C::outOfMemory()) delete error;
}
