#pragma once

#include "text/ClassicNumber.h"

namespace Units {

/// The hexadecimal number that a text begins with, "0x1.8p3" or "0XF", rounded to the nearest
/// double, the even one of two. Beyond the largest double it is infinite.
LeadingNumber readHexadecimal(std::string_view text);

}  // namespace Units
