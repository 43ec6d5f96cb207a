/// Type ids that libstdc++'s std::hash maps to one value, as a hostile schema could choose them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <string>
#include <vector>

/// Ids of 32 bytes, without any that JSON escapes. The hash is MurmurHash64A with a fixed seed,
/// whose mixing is invertible: the last 8 bytes undo the difference that those before them make.
inline std::vector<std::string> collidingIds(std::size_t count) {
  constexpr std::uint64_t mul = 0xc6a4a7935bd1e995, inverse = 0x5f7a0ea7e59b19bd;
  static_assert(mul * inverse == 1);
  const auto shiftMix = [](std::uint64_t v) { return v ^ v >> 47; };  // its own inverse
  const auto added = [&](std::uint64_t hash, std::uint64_t block) {
    return (hash ^ shiftMix(block * mul) * mul) * mul;
  };
  std::vector<std::string> ids;
  for (unsigned number = 0; ids.size() < count; ++number) {
    char digits[9];
    std::snprintf(digits, sizeof digits, "%08u", number);
    std::string id = "colliding typeid" + std::string(digits) + "........";
    std::uint64_t hash = 0xc70f6907 ^ 32 * mul, block = 0;
    for (std::size_t at = 0; at < 24; at += 8) {
      std::memcpy(&block, &id[at], 8);
      hash = added(hash, block);
    }
    const std::uint64_t target = 0x0123456789abcdef;
    block = shiftMix((target * inverse ^ hash) * inverse) * inverse;
    std::memcpy(&id[24], &block, 8);
    bool isPlain = true;
    for (const char c : id.substr(24))
      isPlain =
          isPlain && static_cast<unsigned char>(c) >= ' ' && c != '"' && c != '\'' && c != '\\';
    if (isPlain) ids.push_back(id);
  }
  return ids;
}
