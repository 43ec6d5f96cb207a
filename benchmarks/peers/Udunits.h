#pragma once

#include <memory>
#include <vector>

namespace peers {

/// UDUNITS-2 with its own table of units. Loops over its calls are inside of this class, so that a
/// call costs the same as in a host.
class Udunits {
 public:
  Udunits();  ///< @throws Skipped  UDUNITS-2 is not installed.
  ~Udunits();

  /// Converts between two units given as text, caching nothing, as `convert` does with two ids.
  double convert(double value, const char* from, const char* to) const;

  /// A converter that is created once, and then called for each value or for an array.
  class Converter {
   public:
    Converter(const Udunits& udunits, const char* from, const char* to);
    void convertEach(const std::vector<double>& values, double* converted) const;
    void convertAll(const std::vector<double>& values, double* converted) const;

   private:
    std::shared_ptr<void> converter_;
  };

  /// Parses a number with a unit.
  void read(const char* literal) const;

  /// The value of such a literal in another unit.
  double valueOf(const char* literal, const char* unit) const { return convert(1, literal, unit); }

 private:
  std::unique_ptr<void, void (*)(void*)> system_;
};

}  // namespace peers
