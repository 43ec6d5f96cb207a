#pragma once

#include <string>

namespace Schemas {

/// What the reader of schemas makes of a number, as it is written in JSON.
double numberAsRead(const std::string& written);

/// The double that is nearest to it.
double nearestDouble(const std::string& written);

/// The shortest spelling whose nearest double a finite number is.
std::string shortestSpelling(double number);

/// How to write a number so that the reader makes its nearest double of it; a sentence.
std::string spellingAdvice(const std::string& written);

}  // namespace Schemas
