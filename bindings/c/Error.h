#pragma once

#include "bindings/c/Fault.h"

struct trelvon_error {
  C::Fault fault;
};

namespace C {

/// An error that is made in advance: when memory runs out, no error can be allocated.
trelvon_error* outOfMemory() noexcept;

}  // namespace C
