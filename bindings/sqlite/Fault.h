#pragma once

#include "bindings/sqlite/Owned.h"

#include <string>
#include <string_view>

namespace Sql {

/// Becomes an SQL error. The only other exception, std::bad_alloc, becomes SQLITE_NOMEM.
struct Fault {
  std::string message;
};

/// A message as SQLite can hold it: it ends at a NUL, and hosts read it as UTF-8. Such bytes become
/// `\xNN`.
std::string shown(std::string_view message);

/// @throws Fault           with the message of the error.
/// @throws std::bad_alloc  the status says that there was not enough memory.
[[noreturn]] void refuse(trelvon_status status, Owned<trelvon_error> error);

/// Calls a function of the C interface; the last parameter is left out.
template <class... Parameters, class... Arguments>
void call(trelvon_status (*function)(Parameters...), Arguments... arguments) {
  trelvon_error* error = nullptr;
  const trelvon_status status = function(arguments..., &error);
  if (status != TRELVON_OK) refuse(status, Owned<trelvon_error>(error));
}

/// The same for one that creates something, as its last parameter but one.
template <class Made, class... Parameters, class... Arguments>
Owned<Made> make(trelvon_status (*function)(Parameters...), Arguments... arguments) {
  Made* made = nullptr;
  call(function, arguments..., &made);
  return Owned<Made>(made);
}

/// The same for one that writes a text.
template <class... Parameters, class... Arguments>
std::string write(trelvon_status (*function)(Parameters...), Arguments... arguments) {
  std::string text;
  std::size_t size = 0;
  call(function, arguments..., static_cast<char*>(nullptr), &size);
  text.resize(size);
  call(function, arguments..., text.data(), &size);
  return text;
}

inline trelvon_text textOf(std::string_view text) { return {text.data(), text.size()}; }
inline std::string_view viewOf(trelvon_text text) { return {text.data, text.size}; }

}  // namespace Sql
