#pragma once

#include <TrelvonUnits/trelvon.h>

namespace C {

/// Turns the exception that is being handled into an error, and returns its status.
///
/// @param logicError  the status of std::logic_error itself.
trelvon_status failed(trelvon_error** error, trelvon_status logicError) noexcept;

/// Runs an action and lets no exception reach C. Every function that can fail uses it.
template <class Action>
trelvon_status guard(trelvon_error** error, const Action& action,
                     trelvon_status logicError = TRELVON_OTHER) noexcept {
  if (error != nullptr) *error = nullptr;
  try {
    action();
    return TRELVON_OK;
  } catch (...) {
    return failed(error, logicError);
  }
}

[[noreturn]] void refuseArgument(const char* why);

/// @throws Fault  a pointer is null.
template <class... Pointers>
void require(const Pointers*... pointers) {
  if ((!pointers || ...)) refuseArgument("An argument is null.");
}

}  // namespace C
