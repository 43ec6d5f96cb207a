/// A process locale that writes decimals with a comma, to show that nothing here depends on it.
#pragma once

#include <clocale>
#include <cstdlib>
#include <string>

/// Sets the process's locale to one with a decimal comma, and back when it goes.
///
///   const CommaLocale locale;
///   if (!locale.isSet()) GTEST_SKIP() << CommaLocale::kMissing;
class CommaLocale {
 public:
  static constexpr const char* kMissing = "This machine could make no locale with a decimal comma.";

  CommaLocale() : before_(std::setlocale(LC_ALL, nullptr)) {
    ::setenv("LOCPATH", TRELVON_TESTS_LOCALES, 1);  // where the build made the locale
    isSet_ = std::setlocale(LC_ALL, "de_DE.UTF-8") != nullptr &&
             std::localeconv()->decimal_point == std::string(",");
  }
  ~CommaLocale() {
    std::setlocale(LC_ALL, before_.c_str());
    ::unsetenv("LOCPATH");
  }
  CommaLocale(const CommaLocale&) = delete;
  CommaLocale& operator=(const CommaLocale&) = delete;

  bool isSet() const { return isSet_; }

 private:
  const std::string before_;
  bool isSet_ = false;
};
