#pragma once

#include <string_view>

namespace Units {

/// Each of these reads one composite form. On success, when the whole text is of that form, `value`
/// is set; otherwise nothing changes.

/// Only inches, which need their mark: `6"`, `1/2 in`. The value is in feet.
bool readInchesOnly(std::string_view text, double& value);

/// Whole feet, then inches: `5' 6"`, `5 ft 6 1/2 in`, `5-6"`. A mark, a hyphen or a space must
/// separate them, and one of the two marks is required. The value is in feet.
bool readFeetAndInches(std::string_view text, double& value);

/// Whole degrees, then minutes, seconds or both: `10D 30' 15"`, `10D 15"`, `10 30' 15"`, where D is
/// the degree mark. Without that mark, minutes and seconds are both required, and one of their
/// marks. The value is in degrees.
bool readDegreesMinutesSeconds(std::string_view text, double& value);

/// Only centimeters, which need their mark, or whole meters and centimeters: `35cm`, `2m 35cm`,
/// `2-35cm`. A mark, a hyphen or a space must separate the two, and one of the two marks is
/// required. The value is in meters.
bool readMetersAndCentimeters(std::string_view text, double& value);

}  // namespace Units
