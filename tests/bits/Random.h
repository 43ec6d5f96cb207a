/// Numbers and texts by chance that are the same on every machine: nothing here rests on <random>,
/// on a function of the C library or on the order in which a compiler evaluates arguments.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <iterator>
#include <string>

class Random {
 public:
  explicit Random(std::uint64_t seed) : state_(seed) {}

  /// splitmix64.
  std::uint64_t bits() {
    std::uint64_t mixed = state_ += 0x9E3779B97F4A7C15;
    mixed = (mixed ^ mixed >> 30) * 0xBF58476D1CE4E5B9;
    mixed = (mixed ^ mixed >> 27) * 0x94D049BB133111EB;
    return mixed ^ mixed >> 31;
  }

  int below(int limit) { return static_cast<int>(bits() % static_cast<std::uint64_t>(limit)); }
  int between(int least, int most) { return least + below(most - least + 1); }
  bool oneIn(int count) { return below(count) == 0; }

  template <class List>
  const auto& oneOf(const List& list) {
    const int place = below(static_cast<int>(std::size(list)));
    return *std::next(std::begin(list), place);
  }
  std::string oneOf(std::initializer_list<const char*> texts) {
    return texts.begin()[below(static_cast<int>(texts.size()))];
  }

  /// Any double at all, though most often one that people might mean.
  double number() {
    const int kind = below(10);
    if (kind == 0) return fromBits(bits());
    if (kind == 1) {
      static const std::uint64_t edges[] = {0,
                                            1,
                                            0x8000000000000000,
                                            0x7FF0000000000000,
                                            0xFFF0000000000000,
                                            0x7FF8000000000000,
                                            0x7FEFFFFFFFFFFFFF,
                                            0x0010000000000000,
                                            0x3FF0000000000001,
                                            0x4340000000000000};
      return fromBits(oneOf(edges));
    }
    const double sign = oneIn(2) ? 1.0 : -1.0;
    if (kind < 4) return sign * below(1000);
    if (kind < 7) return sign * below(10000000) / 1000.0;
    const auto exponent = static_cast<std::uint64_t>(between(1023 - 40, 1023 + 40));
    return sign * fromBits(exponent << 52 | bits() >> 12);
  }

  std::string digits(int least, int most) {
    std::string text;
    for (int count = between(least, most); count > 0; --count)
      text += static_cast<char>('0' + below(10));
    return text;
  }

  /// A number without a sign, as JSON takes it.
  std::string decimal() {
    std::string text = "0";
    if (!oneIn(3)) {
      text = std::to_string(between(1, 9));
      text += digits(0, oneIn(9) ? 30 : 4);
    }
    if (!oneIn(4)) text += "." + digits(1, oneIn(5) ? 40 : 6);
    if (oneIn(5)) {
      text += oneOf({"e", "E", "e-", "e+"});
      text += std::to_string(below(oneIn(9) ? 400 : 30));
    }
    return text;
  }

  static double fromBits(std::uint64_t pattern) {
    double number = 0;
    std::memcpy(&number, &pattern, sizeof number);
    return number;
  }

 private:
  std::uint64_t state_;
};
