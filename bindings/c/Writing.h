#pragma once

#include "bindings/c/Guard.h"
#include "bindings/c/Text.h"

#include <functional>

namespace C {

/// Writes the text that a function or member function makes of what a handle holds.
template <class Handle, class Make>
trelvon_status written(const Handle* handle, Buffer buffer, trelvon_error** error,
                       const Make& make) {
  return guard(error, [&] {
    require(handle, buffer.size);
    write(std::invoke(make, handle->value), buffer);
  });
}

}  // namespace C
