/// The message of a refused call, for tables that compare messages letter for letter.
#pragma once

#include <gtest/gtest.h>

#include <exception>
#include <string>
#include <typeinfo>
#include <utility>

/// Runs `action` once and returns the message of the exception that it throws.
///
/// Adds a failure, and returns an empty text, if nothing is thrown or if the exception is not
/// exactly of class `E`: a class derived from `E`, or a base of it, is wrong too.
template <class E, class Action>
std::string messageOf(Action&& action) {
  try {
    std::forward<Action>(action)();
  } catch (const std::exception& thrown) {
    if (typeid(thrown) == typeid(E)) return thrown.what();
    ADD_FAILURE() << "Expected " << typeid(E).name() << ", but " << typeid(thrown).name()
                  << " came, saying: " << thrown.what();
    return {};
  } catch (...) {
    ADD_FAILURE() << "Expected " << typeid(E).name() << ", but something came that is no "
                  << "std::exception.";
    return {};
  }
  ADD_FAILURE() << "Expected " << typeid(E).name() << ", but nothing was thrown.";
  return {};
}
