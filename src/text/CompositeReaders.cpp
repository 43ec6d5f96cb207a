#include "text/CompositeReaders.h"

#include "model/Tolerances.h"
#include "text/LiteralReaders.h"

namespace Units {

namespace {

bool readInchFraction(std::string_view& text, double& feet) {
  std::string_view rest = text;
  double numerator = 0.0;
  double denominator = 0.0;
  if (!readWholeNumber(rest, numerator) || !stripLeadingWord(rest, slash) ||
      !readWholeNumber(rest, denominator) || isNearZero(denominator))
    return false;
  feet += numerator / (denominator * 12.0);
  text = rest;
  return true;
}

bool readWholeInchesAndFraction(std::string_view& text, double& feet) {
  std::string_view rest = text;
  double whole = 0.0;
  if (!readWholeNumber(rest, whole)) return false;
  double sum = whole / 12.0 + feet;
  if (!readInchFraction(rest, sum)) return false;
  feet = sum;
  text = rest;
  return true;
}

bool readDecimalInches(std::string_view& text, double& feet) {
  std::string_view rest = text;
  // strtod would read this sign. Between feet and inches it makes a sum; it is not a separator.
  if (stripLeadingWord(rest, plus)) return false;
  double inches = 0.0;
  if (!readNumber(text, inches)) return false;
  feet += inches / 12.0;
  return true;
}

/// Adds inches, in feet, to `feet`: a fraction ("1/2"), a whole number and a fraction ("6 1/2") or
/// a number ("6", "6.5"), whichever comes first. Takes them off the front of the text; on failure
/// nothing changes.
bool readInches(std::string_view& text, double& feet) {
  return readInchFraction(text, feet) || readWholeInchesAndFraction(text, feet) ||
         readDecimalInches(text, feet);
}

/// Takes what may stand between two components: the first one's mark (`marked` says whether it is
/// there), a hyphen, spaces. Fails when there is none of them.
bool stripSeparator(std::string_view& text, const Words& marks, bool& marked) {
  marked = stripLeadingWord(text, marks);
  const bool hyphen = stripLeadingWord(text, minus);
  const bool spaces = stripSpaces(text);
  return marked || hyphen || spaces;
}

/// Takes minutes and what ends them, and adds them to `degrees`. A number before a second mark is
/// a number of seconds, not of minutes.
bool readMinutes(std::string_view& text, double& degrees, bool& marked, bool& ended) {
  std::string_view rest = text;
  double minutes = 0.0;
  if (!readNumber(rest, minutes) || stripLeadingWord(rest, secondMark)) return false;
  degrees += minutes / 60.0;
  marked = stripLeadingWord(rest, minuteMark);
  const bool spaces = stripSpaces(rest);
  ended = marked || spaces;
  text = rest;
  return true;
}

bool readCentimetersOnly(std::string_view text, double& value) {
  double centimeters = 0.0;
  if (!readNumber(text, centimeters) || !stripLeadingWord(text, centimeterMarks) || !isAtEnd(text))
    return false;
  value = centimeters / 100.0;
  return true;
}

}  // namespace

bool readInchesOnly(std::string_view text, double& value) {
  double feet = 0.0;
  if (!readInches(text, feet) || !stripLeadingWord(text, inchMarks) || !isAtEnd(text)) return false;
  value = feet;
  return true;
}

bool readFeetAndInches(std::string_view text, double& value) {
  double feet = 0.0;
  bool feetMarked = false;
  if (!readWholeNumber(text, feet) || !stripSeparator(text, feetMarks, feetMarked) ||
      !readInches(text, feet))
    return false;
  const bool inchesMarked = stripLeadingWord(text, inchMarks);
  if (!isAtEnd(text) || !(feetMarked || inchesMarked)) return false;
  value = feet;
  return true;
}

bool readDegreesMinutesSeconds(std::string_view text, double& value) {
  double degrees = 0.0;
  if (!readWholeNumber(text, degrees)) return false;
  const bool degreesMarked = stripLeadingWord(text, degreeMark);
  const bool spaces = stripSpaces(text);
  if (!degreesMarked && !spaces) return false;

  bool minutesMarked = false;
  bool minutesEnded = false;
  const bool hasMinutes = readMinutes(text, degrees, minutesMarked, minutesEnded);

  double seconds = 0.0;
  bool secondsMarked = false;
  const bool hasSeconds = (hasMinutes ? minutesEnded : degreesMarked) && readNumber(text, seconds);
  if (hasSeconds) {
    degrees += seconds / 3600.0;
    secondsMarked = stripLeadingWord(text, secondMark);
  }

  const bool named =
      degreesMarked || (hasMinutes && hasSeconds && (minutesMarked || secondsMarked));
  if (!isAtEnd(text) || !named) return false;
  value = degrees;
  return true;
}

bool readMetersAndCentimeters(std::string_view text, double& value) {
  if (readCentimetersOnly(text, value)) return true;
  double meters = 0.0;
  double centimeters = 0.0;
  bool metersMarked = false;
  if (!readWholeNumber(text, meters) || !stripSeparator(text, meterMarks, metersMarked) ||
      !readNumber(text, centimeters))
    return false;
  const bool centimetersMarked = stripLeadingWord(text, centimeterMarks);
  if (!isAtEnd(text) || !(metersMarked || centimetersMarked)) return false;
  value = centimeters / 100.0 + meters;
  return true;
}

}  // namespace Units
