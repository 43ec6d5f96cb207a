#pragma once

#include "bindings/c/Fault.h"

struct trelvon_error {
  C::Fault fault;
};

namespace C {

/// An error that was made beforehand: where there is no memory, there is none for an error.
trelvon_error* outOfMemory() noexcept;

}  // namespace C
