#pragma once

#include "model/Characters.h"

#include <string_view>

namespace Units {

/// The part of a type id that people read: "foot" of "trelvon.unit:foot-1.0.0".
inline std::string_view localIdOf(std::string_view typeId) {
  const std::string_view local = typeId.substr(typeId.rfind(':') + 1);  // npos + 1 is 0
  const std::size_t hyphen = local.rfind('-');
  const bool hasVersion =
      hyphen != local.npos && hyphen + 1 < local.size() && isDigit(local[hyphen + 1]);
  return hasVersion ? local.substr(0, hyphen) : local;
}

}  // namespace Units
