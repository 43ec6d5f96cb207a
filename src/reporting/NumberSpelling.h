#pragma once

#include <string>

namespace Schemas {

/// The value that the reader of schemas reads for a number in JSON.
double numberAsRead(const std::string& written);

/// The double that is nearest to it.
double nearestDouble(const std::string& written);

/// The shortest spelling whose nearest double a finite number is.
std::string shortestSpelling(double number);

/// A sentence that tells how to write a number so that it is read as the double nearest to it.
std::string spellingAdvice(const std::string& written);

}  // namespace Schemas
