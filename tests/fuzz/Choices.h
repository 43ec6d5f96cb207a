/// The bytes of an input as a row of choices, so that whatever the fuzzer writes means something.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <string>

/// Takes an input from the front. When it is used up, every choice is the first one: loops end, and
/// short inputs are small cases.
class Choices {
 public:
  Choices(const std::uint8_t* data, std::size_t size) : next_(data), end_(data + size) {}

  /// A number below `limit`, which is at most 65536, out of one byte or two.
  std::size_t below(std::size_t limit) {
    std::size_t number = byte();
    if (limit > 256) number = number << 8 | byte();
    return number % limit;
  }

  bool oneIn(std::size_t count) { return below(count) == 1; }

  std::uint64_t bits() {
    std::uint64_t all = 0;
    for (int count = 0; count < 8; ++count) all = all << 8 | byte();
    return all;
  }

  /// A double of any bits at all.
  double anyDouble() {
    const std::uint64_t all = bits();
    double number = 0;
    std::memcpy(&number, &all, sizeof number);
    return number;
  }

  template <class List>
  const auto& oneOf(const List& list) {
    return *std::next(std::begin(list), static_cast<std::ptrdiff_t>(below(std::size(list))));
  }

  /// Up to `most` pieces, joined.
  template <class List>
  std::string text(const List& pieces, std::size_t most) {
    std::string made;
    for (std::size_t count = below(most + 1); count > 0; --count) made += oneOf(pieces);
    return made;
  }

  /// All bytes that are left.
  std::string rest() {
    std::string bytes(next_, end_);
    next_ = end_;
    return bytes;
  }

  /// Takes the next byte if it is this one.
  bool takes(char expected) {
    const bool isNext = next_ != end_ && *next_ == static_cast<std::uint8_t>(expected);
    if (isNext) ++next_;
    return isNext;
  }

 private:
  std::uint8_t byte() { return next_ == end_ ? std::uint8_t{0} : *next_++; }

  const std::uint8_t* next_;
  const std::uint8_t* end_;
};
