/// Random choices that are the same on every machine: nothing here depends on <random>, on the C
/// library or on the order in which a compiler evaluates arguments.
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

  /// Chooses by the bytes of a fuzz input. When they are used up, every choice is the first one:
  /// loops end, and short inputs are small cases.
  Random(const std::uint8_t* data, std::size_t size)
      : isInput_(true), next_(data), end_(data + size) {}

  std::uint64_t bits() {
    if (!isInput_) return splitmix64();
    std::uint64_t all = 0;
    for (int count = 0; count < 8; ++count) all = all << 8 | byte();
    return all;
  }

  /// A number below `limit`. Of an input it takes one byte or two: `limit` is at most 65536 there.
  std::size_t below(std::size_t limit) {
    if (!isInput_) return static_cast<std::size_t>(splitmix64() % limit);
    std::size_t number = byte();
    if (limit > 256) number = number << 8 | byte();
    return number % limit;
  }
  int between(int least, int most) {
    return least + static_cast<int>(below(static_cast<std::size_t>(most - least + 1)));
  }
  bool oneIn(std::size_t count) { return below(count) == 1; }

  template <class List>
  const auto& oneOf(const List& list) {
    return *std::next(std::begin(list), static_cast<std::ptrdiff_t>(below(std::size(list))));
  }
  std::string oneOf(std::initializer_list<const char*> texts) {
    return texts.begin()[below(texts.size())];
  }

  /// Up to `most` pieces, joined.
  template <class List>
  std::string text(const List& pieces, std::size_t most) {
    std::string made;
    for (std::size_t count = below(most + 1); count > 0; --count) made += oneOf(pieces);
    return made;
  }

  double anyDouble() { return fromBits(bits()); }

  /// Any double at all, but most often one that people might use.
  double number() {
    constexpr std::uint64_t bit = 1, infinity = 0x7FF * (bit << 52);
    static const std::uint64_t edges[] = {0,
                                          bit,
                                          bit << 63,
                                          infinity,
                                          infinity | bit << 63,
                                          infinity | bit << 51,
                                          infinity - 1,
                                          bit << 52,
                                          0x3FF * (bit << 52) | bit,
                                          0x434 * (bit << 52)};
    const int kind = between(0, 9);
    if (kind == 0) return anyDouble();
    if (kind == 1) return fromBits(oneOf(edges));
    const double sign = oneIn(2) ? 1.0 : -1.0;
    if (kind < 4) return sign * between(0, 999);
    if (kind < 7) return sign * between(0, 65535) / 1000.0;
    const auto exponent = static_cast<std::uint64_t>(between(1023 - 40, 1023 + 40));
    return sign * fromBits(exponent << 52 | bits() >> 12);
  }

  std::string digits(int least, int most) {
    std::string text;
    for (int count = between(least, most); count > 0; --count)
      text += static_cast<char>('0' + between(0, 9));
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
      text += std::to_string(between(0, oneIn(9) ? 399 : 29));
    }
    return text;
  }

  /// All bytes of an input that are left.
  std::string rest() {
    std::string bytes(next_, end_);
    next_ = end_;
    return bytes;
  }

  /// Takes the next byte of an input if it is this one.
  bool takes(char expected) {
    const bool isNext = next_ != end_ && *next_ == static_cast<std::uint8_t>(expected);
    if (isNext) ++next_;
    return isNext;
  }

 private:
  std::uint64_t splitmix64() {
    std::uint64_t mixed = state_ += 0x9E3779B97F4A7C15;
    mixed = (mixed ^ mixed >> 30) * 0xBF58476D1CE4E5B9;
    mixed = (mixed ^ mixed >> 27) * 0x94D049BB133111EB;
    return mixed ^ mixed >> 31;
  }

  std::uint8_t byte() { return next_ == end_ ? std::uint8_t{0} : *next_++; }

  static double fromBits(std::uint64_t pattern) {
    double number = 0;
    std::memcpy(&number, &pattern, sizeof number);
    return number;
  }

  std::uint64_t state_ = 0;
  bool isInput_ = false;
  const std::uint8_t* next_ = nullptr;
  const std::uint8_t* end_ = nullptr;
};
