#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

namespace Units {

/// How near one text is to another. Less is nearer.
struct Nearness {
  std::size_t distance;      // errors that lead from one to the other
  std::size_t sharedPrefix;  // code points at the start of both; they tell equal distances apart

  bool operator<(const Nearness& other) const {
    return std::tie(distance, other.sharedPrefix) < std::tie(other.distance, sharedPrefix);
  }
  bool operator==(const Nearness& other) const {
    return distance == other.distance && sharedPrefix == other.sharedPrefix;
  }
};

/// Compares a text that may be mistyped with others. Nothing allocates or throws.
///
/// An error is a code point inserted, deleted or replaced, or two neighbors swapped (the optimal
/// string alignment distance, a restricted form of Damerau's). The case of ASCII letters does not
/// count. Two texts are near if there is at most one error for every three code points, and never
/// more than three errors: "mter" is near "meter", but no single letter is near another.
class EditDistance {
 public:
  /// Longer texts are not near any text, so a comparison takes bounded time.
  static constexpr std::size_t longestText = 256;  // bytes

  /// What a quick test needs to know of a text.
  struct Sketch {
    std::size_t size = 0;     // in code points, of the first bytes
    std::uint64_t kinds = 0;  // a bit for each code point that occurs; some share one
  };
  static Sketch sketchOf(std::string_view text) noexcept { return CodePoints(text); }

  explicit EditDistance(std::string_view text) noexcept;

  /// A quick test that most texts fail: whether a text with this sketch may be near.
  bool mayBeNear(const Sketch& other) const noexcept;

  /// @return  empty unless `other` is near.
  std::optional<Nearness> to(std::string_view other) const noexcept;

 private:
  struct CodePoints : Sketch {
    explicit CodePoints(std::string_view bytes) noexcept;

    std::array<char32_t, longestText> points;
  };

  std::size_t distanceTo(const CodePoints& other) const noexcept;

  const bool isTooLong_;
  const CodePoints text_;
  const std::size_t bound_;
};

/// The texts that are nearest to a text, nearest first; of texts that are equally near, the first
/// ones first.
/// @param candidates  any range of texts, such as a std::set<std::string>.
/// @param count       how many to return at most.
template <class Texts>
std::vector<std::string> nearestTexts(std::string_view text, const Texts& candidates,
                                      std::size_t count) {
  const EditDistance distance(text);
  std::vector<std::tuple<Nearness, std::size_t, std::string_view>> near;
  std::size_t place = 0;
  for (const auto& candidate : candidates) {
    const auto nearness = distance.to(candidate);
    if (nearness) near.emplace_back(*nearness, place, candidate);
    ++place;
  }
  std::sort(near.begin(), near.end());
  std::vector<std::string> nearest;
  for (std::size_t i = 0; i < std::min(count, near.size()); ++i)
    nearest.emplace_back(std::get<std::string_view>(near[i]));
  return nearest;
}

}  // namespace Units
