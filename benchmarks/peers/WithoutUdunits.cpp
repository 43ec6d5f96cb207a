#include "benchmarks/peers/Turns.h"
#include "benchmarks/peers/Udunits.h"

namespace peers {

Udunits::Udunits() : system_(nullptr, nullptr) {
  throw Skipped("libudunits2-dev is not installed");
}
Udunits::~Udunits() = default;
double Udunits::convert(double, const char*, const char*) const { return 0; }
Udunits::Converter::Converter(const Udunits&, const char*, const char*) {}
void Udunits::Converter::convertEach(const std::vector<double>&, double*) const {}
void Udunits::Converter::convertAll(const std::vector<double>&, double*) const {}
void Udunits::read(const char*) const {}

}  // namespace peers
