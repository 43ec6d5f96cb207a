#include "benchmarks/peers/Udunits.h"

#include "benchmarks/peers/Turns.h"

#include <udunits2.h>

namespace peers {

namespace {

ut_unit* parse(void* system, const char* text) {
  return ut_parse(static_cast<ut_system*>(system), text, UT_ASCII);
}

}  // namespace

Udunits::Udunits()
    : system_((ut_set_error_message_handler(ut_ignore), ut_read_xml(nullptr)),
              [](void* system) { ut_free_system(static_cast<ut_system*>(system)); }) {
  check(system_ != nullptr, "UDUNITS-2 cannot load its units");
}

Udunits::~Udunits() = default;

double Udunits::convert(double value, const char* from, const char* to) const {
  ut_unit* const fromUnit = parse(system_.get(), from);
  ut_unit* const toUnit = parse(system_.get(), to);
  cv_converter* const converter = ut_get_converter(fromUnit, toUnit);
  check(converter != nullptr, "UDUNITS-2 from " + std::string(from) + " to " + to);
  const double converted = cv_convert_double(converter, value);
  cv_free(converter);
  ut_free(toUnit);
  ut_free(fromUnit);
  return converted;
}

Udunits::Converter::Converter(const Udunits& udunits, const char* from, const char* to) {
  ut_unit* const fromUnit = parse(udunits.system_.get(), from);
  ut_unit* const toUnit = parse(udunits.system_.get(), to);
  converter_.reset(ut_get_converter(fromUnit, toUnit),
                   [](void* converter) { cv_free(static_cast<cv_converter*>(converter)); });
  ut_free(toUnit);
  ut_free(fromUnit);
}

void Udunits::Converter::convertEach(const std::vector<double>& values, double* converted) const {
  const auto* const converter = static_cast<const cv_converter*>(converter_.get());
  for (const double value : values) *converted++ = cv_convert_double(converter, value);
}

void Udunits::Converter::convertAll(const std::vector<double>& values, double* converted) const {
  const auto* const converter = static_cast<const cv_converter*>(converter_.get());
  cv_convert_doubles(converter, values.data(), values.size(), converted);
}

void Udunits::read(const char* literal) const { ut_free(parse(system_.get(), literal)); }

}  // namespace peers
