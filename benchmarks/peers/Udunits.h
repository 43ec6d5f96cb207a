#pragma once

#include <memory>
#include <vector>

namespace peers {

/// UDUNITS-2 with its own table of units. The loops over its calls stand inside, so that a call
/// costs here what it costs in a host.
class Udunits {
 public:
  Udunits();  ///< @throws Skipped  it is not installed.
  ~Udunits();

  /// From two texts to a number, keeping nothing: what `convert` does with two ids.
  double convert(double value, const char* from, const char* to) const;

  /// A converter made once, called with one value at a time.
  class Converter {
   public:
    Converter(const Udunits& udunits, const char* from, const char* to);
    void convertEach(const std::vector<double>& values, double* converted) const;

   private:
    std::shared_ptr<void> converter_;
  };

  /// Reads a number with a unit.
  void read(const char* literal) const;

  /// That number, counted in another unit.
  double valueOf(const char* literal, const char* unit) const { return convert(1, literal, unit); }

 private:
  std::unique_ptr<void, void (*)(void*)> system_;
};

}  // namespace peers
