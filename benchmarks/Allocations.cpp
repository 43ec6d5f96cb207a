/// Counts the heap allocations of calls and the bytes that they keep.
///   allocations
#include "benchmarks/Catalog.h"

#include <TrelvonUnits/PreparedConversion.h>

#include <malloc.h>

#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <new>

namespace {

std::size_t allocations = 0;

void* allocate(std::size_t size, std::size_t alignment) {
  ++allocations;
  void* const memory = std::aligned_alloc(alignment, (size + alignment) / alignment * alignment);
  return memory != nullptr ? memory : throw std::bad_alloc();
}

}  // namespace

// These also replace the operators that the shared library uses.
void* operator new(std::size_t size) { return allocate(size, alignof(std::max_align_t)); }
void* operator new(std::size_t size, std::align_val_t alignment) {
  return allocate(size, static_cast<std::size_t>(alignment));
}
void operator delete(void* memory) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }
void operator delete(void* memory, std::align_val_t) noexcept { std::free(memory); }
void operator delete(void* memory, std::size_t, std::align_val_t) noexcept { std::free(memory); }

namespace {

/// Prints a line of the table. Arguments are created in advance, as far as the interface allows.
void count(const char* call, const std::function<void()>& work) {
  constexpr int kCalls = 10000;
  work();
  const std::size_t inUse = mallinfo2().uordblks;
  const std::size_t before = allocations;
  for (int time = 0; time < kCalls; ++time) work();
  std::printf("| %s | %.3g | %td |\n", call, static_cast<double>(allocations - before) / kCalls,
              static_cast<std::ptrdiff_t>(mallinfo2().uordblks - inUse));
}

}  // namespace

int main() {
  const Units::UnitsEngine& engine = catalog();
  const std::string from = unit("kilometerPerHour"), to = unit("meterPerSecond");
  const std::string meter = unit("meter"), newton = unit("newton");
  const std::string sum = "2 ft + 3 in";
  const std::string formula = "0.5 * 1.2 kg/m^3 * (30 m/s)^2 * 2.2 m^2 * 0.3 * 2.0";
  const std::string kilogram = "trelvon.symbol:kilogram-1.0.0";
  const std::string feetAndInches = "trelvon.symbol:feetAndInches-1.0.0";

  std::puts("| call | allocations per call | bytes kept after 10,000 calls |\n|-|-|-|");
  count("copying two type ids, as every `convert` does", [&] {
    const std::string copies[] = {from, to};
    asm volatile("" : : "r"(copies) : "memory");
  });
  count("`convert`", [&] { engine.convert(2.5, from, to); });
  count("`canConvert`, inconvertible units", [&] { engine.canConvert(from, newton); });
  const Units::PreparedConversion prepared(engine, from, to);
  count("prepared conversion of one value", [&] { prepared(2.5); });
  count("`evaluateExpressionInUnit`, 11 characters",
        [&] { engine.evaluateExpressionInUnit(meter, sum); });
  count("`evaluateExpressionInUnit`, 51 characters",
        [&] { engine.evaluateExpressionInUnit(newton, formula); });
  count("`formatFixedPoint` with a symbol",
        [&] { engine.formatFixedPoint(12.5, 2, &kilogram, false); });
  count("`formatFractional` in feet and inches",
        [&] { engine.formatFractional(5.53125, 4, &feetAndInches); });
}
