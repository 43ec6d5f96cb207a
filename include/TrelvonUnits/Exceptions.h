#pragma once

#include <TrelvonUnits/Export.h>

#include <stdexcept>
#include <string>

/// @file
/// The library reports every failure by throwing. The five classes below say what kind of failure
/// it is; all derive from std::logic_error, and what() is the message alone. docs/errors.md
/// explains every message.
///
/// The library never translates the exceptions of others: std::bad_alloc, the errors of
/// std::filesystem, and exceptions from a host's own resolver or engine reach the caller unchanged.
/// So one handler for std::logic_error catches all failures of the library, and one for
/// std::exception all failures.
namespace Units {

/// Thrown when units do not convert into each other: "Cannot convert between units a and b.".
/// Ask `UnitsEngine::canConvert` first to avoid it.
class TRELVONUNITS_API IncompatibleUnitsException : public std::logic_error {
 public:
  /// @param message  what() returns it.
  explicit IncompatibleUnitsException(std::string message);
  IncompatibleUnitsException(const IncompatibleUnitsException& other);
  ~IncompatibleUnitsException() override;
};

/// Thrown when a formula cannot be read or evaluated, for example "Unable to parse expression." for
/// unbalanced parentheses or for a sum of a length and a mass.
class TRELVONUNITS_API ParseException : public std::logic_error {
 public:
  /// @param message  what() returns it.
  explicit ParseException(std::string message);
  ParseException(const ParseException& other);
  ~ParseException() override;
};

/// Thrown when formatting is asked for more digits than it supports: more than 12 decimal places,
/// or a fraction finer than 2 to the power -9.
class TRELVONUNITS_API PrecisionException : public std::logic_error {
 public:
  /// @param message  what() returns it.
  explicit PrecisionException(std::string message);
  PrecisionException(const PrecisionException& other);
  ~PrecisionException() override;
};

/// Thrown when a type id names no stored record of the requested kind, for example "Could not find
/// unit with typeid a.".
class TRELVONUNITS_API UnrecognizedIdentifierException : public std::logic_error {
 public:
  /// @param message  what() returns it.
  explicit UnrecognizedIdentifierException(std::string message);
  UnrecognizedIdentifierException(const UnrecognizedIdentifierException& other);
  ~UnrecognizedIdentifierException() override;
};

/// Thrown when a definition, as schema text or as a record, breaks the rules of its kind, or when
/// its type id is empty or already taken. The engine has not stored it.
class TRELVONUNITS_API ValidationException : public std::logic_error {
 public:
  /// @param message  what() returns it.
  explicit ValidationException(std::string message);
  ValidationException(const ValidationException& other);
  ~ValidationException() override;
};

}  // namespace Units
