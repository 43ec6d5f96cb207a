/// Type ids that libstdc++'s std::hash maps to one value, as a hostile schema could choose them.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

/// Ids of 16 bytes, without any that JSON escapes. The hash is MurmurHash64A with a fixed seed,
/// whose mixing is invertible: the last 8 bytes undo the difference that the first 8 make.
inline std::vector<std::string> collidingIds(std::size_t count) {
  constexpr std::uint64_t mul = 0xc6a4a7935bd1e995, inverse = 0x5f7a0ea7e59b19bd;
  static_assert(mul * inverse == 1);
  const auto shiftMix = [](std::uint64_t v) { return v ^ v >> 47; };  // its own inverse
  const auto isPlain = [](char c) {
    return static_cast<unsigned char>(c) >= ' ' && c != '"' && c != '\'' && c != '\\';
  };
  std::vector<std::string> ids;
  for (unsigned number = 10000000; ids.size() < count; ++number) {
    std::string id = std::to_string(number) + "........";
    std::uint64_t block = 0;
    std::memcpy(&block, &id[0], 8);
    const std::uint64_t hash = (0xc70f6907 ^ 16 * mul ^ shiftMix(block * mul) * mul) * mul;
    const std::uint64_t target = 0x0123456789abcdef;
    block = shiftMix((target * inverse ^ hash) * inverse) * inverse;
    std::memcpy(&id[8], &block, 8);
    if (std::all_of(id.begin() + 8, id.end(), isPlain)) ids.push_back(id);
  }
  return ids;
}
