#include "bindings/c/Fault.h"

#include <TrelvonUnits/Exceptions.h>

#include <filesystem>
#include <new>
#include <stdexcept>

namespace C {

Fault currentFault(trelvon_status logicError) {
  try {
    throw;
  } catch (const Fault& fault) {
    return fault;
  } catch (const Units::UnrecognizedIdentifierException& error) {
    return {TRELVON_UNRECOGNIZED, error.what()};
  } catch (const Units::ValidationException& error) {
    return {TRELVON_VALIDATION, error.what()};
  } catch (const Units::IncompatibleUnitsException& error) {
    return {TRELVON_INCOMPATIBLE, error.what()};
  } catch (const Units::PrecisionException& error) {
    return {TRELVON_PRECISION, error.what()};
  } catch (const Units::ParseException& error) {
    return {TRELVON_PARSE, error.what()};
  } catch (const std::length_error&) {
    throw std::bad_alloc();
  } catch (const std::logic_error& error) {
    return {logicError, error.what()};
  } catch (const std::filesystem::filesystem_error& error) {
    return {TRELVON_FILE, error.what()};
  } catch (const std::bad_alloc&) {
    throw;
  } catch (const std::exception& error) {
    return {TRELVON_OTHER, error.what()};
  } catch (...) {
    return {TRELVON_OTHER, "Something other than a std::exception was thrown."};
  }
}

}  // namespace C
