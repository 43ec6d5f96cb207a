#include <TrelvonUnits/Exceptions.h>

namespace Units {

IncompatibleUnitsException::IncompatibleUnitsException(std::string message)
    : std::logic_error(message) {}
IncompatibleUnitsException::IncompatibleUnitsException(const IncompatibleUnitsException& other) =
    default;
IncompatibleUnitsException::~IncompatibleUnitsException() = default;

ParseException::ParseException(std::string message) : std::logic_error(message) {}
ParseException::ParseException(const ParseException& other) = default;
ParseException::~ParseException() = default;

PrecisionException::PrecisionException(std::string message) : std::logic_error(message) {}
PrecisionException::PrecisionException(const PrecisionException& other) = default;
PrecisionException::~PrecisionException() = default;

UnrecognizedIdentifierException::UnrecognizedIdentifierException(std::string message)
    : std::logic_error(message) {}
UnrecognizedIdentifierException::UnrecognizedIdentifierException(
    const UnrecognizedIdentifierException& other) = default;
UnrecognizedIdentifierException::~UnrecognizedIdentifierException() = default;

ValidationException::ValidationException(std::string message) : std::logic_error(message) {}
ValidationException::ValidationException(const ValidationException& other) = default;
ValidationException::~ValidationException() = default;

}  // namespace Units
