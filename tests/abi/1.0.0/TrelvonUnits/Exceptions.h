#pragma once

#include <TrelvonUnits/Export.h>

#include <stdexcept>
#include <string>

/// Every failure of the library is thrown. The five classes below say what kind it is; all are
/// std::logic_error, and what() is the message alone. Allocation and file system failures reach
/// the caller as the standard library's own exceptions.
namespace Units {

/// Units that do not convert into one another.
class TRELVONUNITS_API IncompatibleUnitsException : public std::logic_error {
 public:
  explicit IncompatibleUnitsException(std::string message);
  IncompatibleUnitsException(const IncompatibleUnitsException& other);
  ~IncompatibleUnitsException() override;
};

/// A formula that cannot be read or evaluated.
class TRELVONUNITS_API ParseException : public std::logic_error {
 public:
  explicit ParseException(std::string message);
  ParseException(const ParseException& other);
  ~ParseException() override;
};

/// A display precision beyond what formatting supports.
class TRELVONUNITS_API PrecisionException : public std::logic_error {
 public:
  explicit PrecisionException(std::string message);
  PrecisionException(const PrecisionException& other);
  ~PrecisionException() override;
};

/// A type id that names nothing of the kind asked for.
class TRELVONUNITS_API UnrecognizedIdentifierException : public std::logic_error {
 public:
  explicit UnrecognizedIdentifierException(std::string message);
  UnrecognizedIdentifierException(const UnrecognizedIdentifierException& other);
  ~UnrecognizedIdentifierException() override;
};

/// A definition, as schema text or as a record, that breaks the rules of its kind, or a type id
/// that is empty or already taken.
class TRELVONUNITS_API ValidationException : public std::logic_error {
 public:
  explicit ValidationException(std::string message);
  ValidationException(const ValidationException& other);
  ~ValidationException() override;
};

}  // namespace Units
