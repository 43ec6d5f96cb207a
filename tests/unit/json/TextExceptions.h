/// The exceptions of documents that tests read.
#pragma once

#include "json/JSON.h"

#include <memory>
#include <stdexcept>
#include <string>

/// What our documents throw: a class that nothing else throws.
struct TextError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

class TextErrorFactory : public ExceptionFactory {
 public:
  std::exception_ptr createException(const std::string& message) override {
    return std::make_exception_ptr(TextError(message));
  }
};

inline JSON parse(const std::string& text) {
  return JSON::parse(std::make_shared<TextErrorFactory>(), text);
}
