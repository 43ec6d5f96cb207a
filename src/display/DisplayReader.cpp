#include "display/DisplayReader.h"

#include "display/Quotient.h"
#include "display/Rounding.h"
#include "display/ScaleFinder.h"
#include "display/WrittenNumber.h"
#include "model/ShownText.h"
#include "model/TextEdges.h"
#include "text/ClassicNumber.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace Units {

namespace {

std::string inQuotes(std::string_view text) { return '`' + shownText(text) + '`'; }

/// The number of a part, and the fraction after it.
struct PartNumber {
  std::string whole = "0";
  std::string places;
  std::uint32_t numerator = 0;
  std::uint32_t denominator = 1;
};

/// If a member that returns whether it has read something returns false, it has refused the text.
class DisplayReader {
 public:
  DisplayReader(const DisplayContents& display, std::string_view text)
      : display_(display), text_(text), made_(std::make_unique<DisplayReadingContents>()) {}

  std::unique_ptr<DisplayReadingContents> read();

 private:
  std::string_view rest() const { return text_.substr(at_, end_ - at_); }
  std::string_view between(std::size_t begin, std::size_t end) const {
    return text_.substr(begin, end - begin);
  }
  void skipSpaces() { at_ += spacesIn(rest()); }
  void trim();
  void take(DisplayPieceKind kind, std::size_t bytes);
  bool refuse(std::size_t begin, std::size_t end, const std::string& sentence);

  void readSign();
  bool readComposite(double& value);
  bool readPart(std::size_t index, PartNumber& number, std::uint32_t& count);
  bool readMark(std::string_view mark);
  bool divide(Natural& count, const PartNumber& last, double& value);
  bool readPlain(double& value);
  bool refuseUnit(std::size_t end);
  bool readAmount(bool isInPart, PartNumber& number);
  bool readNumber(bool isInPart, bool isWhole, PartNumber& number);
  bool refuseMarks(const WrittenNumber& written);
  bool isFractionAt(std::size_t place) const;
  bool readFraction(PartNumber& number);
  bool readDecimal(const PartNumber& number, double& value);
  bool refuseRange();

  const DisplayContents& display_;
  const std::string_view text_;
  std::size_t at_ = 0;
  std::size_t end_ = 0;
  std::size_t begin_ = 0;  // of the value, after its sign
  bool isNegative_ = false;
  std::unique_ptr<DisplayReadingContents> made_;
};

void DisplayReader::trim() {
  at_ = spacesIn(text_);
  end_ = at_ + withoutOuterSpaces(text_).size();
}

void DisplayReader::take(DisplayPieceKind kind, std::size_t bytes) {
  made_->pieces.push_back({kind, {0, at_, 0, at_ + bytes}});
  at_ += bytes;
}

bool DisplayReader::refuse(std::size_t begin, std::size_t end, const std::string& sentence) {
  made_->span = {0, begin, 0, end};
  made_->sentence = sentence;
  return false;
}

/// A hyphen or U+2212, with or without a mark of direction before it.
void DisplayReader::readSign() {
  std::string_view text = rest();
  std::size_t bytes = 0;
  for (const std::string_view direction : {"\xE2\x80\x8E", "\xE2\x80\x8F", "\xD8\x9C"})
    if (bytes == 0 && startsWith(text, direction)) bytes = direction.size();
  text.remove_prefix(bytes);
  for (const std::string_view minus : {"-", "\xE2\x88\x92"})
    if (startsWith(text, minus)) {
      take(DisplayPieceKind::Sign, bytes + minus.size());
      isNegative_ = true;
      skipSpaces();
      return;
    }
}

/// Refuses a number whose marks are not those of the display, and says what they may mean.
bool DisplayReader::refuseMarks(const WrittenNumber& written) {
  const std::size_t begin = at_;
  const std::size_t end = at_ + written.bytes;
  const std::string shown = inQuotes(between(begin, end));
  const NumberStyle& style = display_.style;
  std::vector<std::string> spellings;
  for (const char mark : {'.', ','}) {
    const std::optional<PlainNumber> number = readLeniently(written, mark);
    if (!number) continue;
    const double value = readClassicDouble(number->digits).value;
    if (!std::isfinite(value)) continue;
    if (!made_->readings.empty() && made_->readings.front() == value) continue;
    made_->readings.push_back(value);
    std::string spelling = number->digits;
    if (number->places == primaryGroup && display_.form.isWhole() && style.groups)
      spelling += '0';  // four digits are not a group
    if (number->places > 0) spelling.replace(spelling.find('.'), 1, style.decimalMark);
    spellings.push_back(inQuotes(spelling));
  }
  if (spellings.size() == 2)
    return refuse(begin, end,
                  shown + " has two readings: write " + spellings[0] + " or " + spellings[1] + '.');
  const std::string why = shown + " does not fit this number format. The decimal mark is " +
                          inQuotes(style.decimalMark) + '.';
  made_->readings.clear();
  return refuse(begin, end, spellings.empty() ? why : why + " Write " + spellings[0] + '.');
}

/// Whether digits and a slash follow, after any spaces.
bool DisplayReader::isFractionAt(std::size_t place) const {
  if (display_.form.kind != NumberForm::Kind::Fraction) return false;
  std::string_view text = between(place, end_);
  text.remove_prefix(spacesIn(text));
  const std::size_t bytes = findNumber(text, display_.style, false, false).bytes;
  return bytes != 0 && startsWith(text.substr(bytes), "/");
}

/// @param isWhole  whether decimal places are refused.
bool DisplayReader::readNumber(bool isInPart, bool isWhole, PartNumber& number) {
  const NumberStyle& style = display_.style;
  const WrittenNumber written = findNumber(rest(), style, true, isInPart);
  if (written.bytes == 0) return refuse(at_, end_, "There is no number.");
  const std::size_t end = at_ + written.bytes;
  const std::string shown = inQuotes(between(at_, end));
  if (written.mixesDigits) return refuse(at_, end, shown + " mixes digits from two scripts.");
  const std::optional<PlainNumber> plain = readStrictly(written, style);
  if (!plain) return refuseMarks(written);
  // The meaning of a single mark must not depend on the locale alone: it is the one that the
  // display shows.
  const bool hasFraction = isFractionAt(end);
  const bool meansGroup = display_.form.isWhole() && style.groups;
  if (!isInPart && !hasFraction && isDoubtful(written) && meansGroup != (plain->places == 0))
    return refuseMarks(written);
  if ((isWhole || hasFraction) && plain->places > 0)
    return refuse(at_, end, shown + " must be a whole number.");
  number.whole = plain->digits.substr(0, plain->digits.find('.'));
  number.places = plain->places == 0 ? "" : plain->digits.substr(number.whole.size() + 1);
  take(DisplayPieceKind::Number, written.bytes);
  return true;
}

bool DisplayReader::readFraction(PartNumber& number) {
  const std::size_t begin = at_;
  const WrittenNumber above = findNumber(rest(), display_.style, false, false);
  const std::size_t slash = above.bytes + 1;
  const WrittenNumber below = findNumber(rest().substr(slash), display_.style, false, false);
  take(DisplayPieceKind::Fraction, slash + below.bytes);
  constexpr std::size_t mostDigits = 3;
  if (above.characters.size() <= mostDigits && below.characters.size() <= mostDigits) {
    number.numerator = static_cast<std::uint32_t>(readClassicDigits(above.characters).value);
    number.denominator = static_cast<std::uint32_t>(readClassicDigits(below.characters).value);
    const bool isPower = number.denominator != 0 && number.denominator <= 512 &&
                         (number.denominator & (number.denominator - 1)) == 0;
    if (isPower && number.numerator < number.denominator) return true;
  }
  made_->pieces.pop_back();
  return refuse(begin, at_,
                inQuotes(between(begin, at_)) +
                    " is not a fraction below 1 in halves, quarters and so on down to 512ths.");
}

/// A number, a fraction, or both.
bool DisplayReader::readAmount(bool isInPart, PartNumber& number) {
  const bool isFraction = isFractionAt(at_);
  if (!isFraction && !readNumber(isInPart, false, number)) return false;
  if (!isFractionAt(at_)) return true;
  skipSpaces();
  return readFraction(number);
}

bool DisplayReader::refuseRange() {
  return refuse(begin_, end_, inQuotes(between(begin_, end_)) + " is too large.");
}

bool DisplayReader::readMark(std::string_view mark) {
  skipSpaces();
  const std::size_t begin = at_;
  for (const char c : mark) {
    if (c == ' ') {
      skipSpaces();
    } else if (startsWith(rest(), std::string_view(&c, 1))) {
      ++at_;
    } else {
      at_ = begin;
      return refuse(at_, end_, inQuotes(mark) + " is missing.");
    }
  }
  const std::size_t end = std::exchange(at_, begin);
  take(DisplayPieceKind::Unit, end - begin);
  return true;
}

/// Any part except the first. It must be less than one of the part before it.
bool DisplayReader::readPart(std::size_t index, PartNumber& number, std::uint32_t& count) {
  const CompositeLayout& layout = *display_.form.layout;
  const std::size_t begin = at_;
  const bool isLast = index + 1 == layout.count;
  if (!(isLast ? readAmount(true, number) : readNumber(true, true, number))) return false;
  const double whole = readClassicDouble(number.whole).value;
  const CompositeComponent& before = layout.components[index - 1];
  if (!(whole < before.ratio))
    return refuse(
        begin, at_,
        inQuotes(between(begin, at_)) + " must be less than " + std::to_string(before.ratio) + ".");
  count = static_cast<std::uint32_t>(whole);
  return readMark(layout.components[index].mark);
}

bool DisplayReader::readComposite(double& value) {
  const CompositeLayout& layout = *display_.form.layout;
  PartNumber number;
  if (!readNumber(true, true, number)) return false;
  if (number.whole.size() > mostWholeDigits) return refuseRange();
  Natural count = naturalOf(number.whole);
  if (!readMark(layout.components[0].mark)) return false;
  for (std::size_t index = 1; index < layout.count; ++index) {
    std::uint32_t units = 0;
    skipSpaces();
    number = {};
    if (!readPart(index, number, units)) return false;
    count.multiply(static_cast<std::uint32_t>(layout.components[index - 1].ratio), units);
  }
  return divide(count, number, value);
}

/// Counts steps of the last part, and divides by the number of them in one of the first.
bool DisplayReader::divide(Natural& count, const PartNumber& last, double& value) {
  constexpr std::size_t mostPlaces = 12;
  if (last.places.size() > mostPlaces)
    return refuse(begin_, end_, inQuotes(last.places) + " has more than 12 decimal places.");
  const std::size_t low = std::min<std::size_t>(last.places.size(), 9);
  const std::size_t high = last.places.size() - low;
  const auto digits = [&](std::size_t first, std::size_t size) {
    return static_cast<std::uint32_t>(
        readClassicDigits(std::string_view(last.places).substr(first, size)).value);
  };
  count.multiply(powersOfTen[low], digits(0, low));
  count.multiply(powersOfTen[high], digits(low, high));
  count.multiply(last.denominator, last.numerator);
  value = quotient(
      count, {powersOfTen[low], powersOfTen[high], last.denominator, display_.form.lastUnits});
  return std::isfinite(value) || refuseRange();
}

/// The value of digits with a point. It is 0 only if all digits are, and never infinite.
bool DisplayReader::readDecimal(const PartNumber& number, double& value) {
  const std::string digits =
      number.places.empty() ? number.whole : number.whole + '.' + number.places;
  value = readClassicDouble(digits).value;
  const bool isLost = value == 0.0 && digits.find_first_not_of("0.") != std::string::npos;
  return (std::isfinite(value) && !isLost) || refuseRange();
}

bool DisplayReader::readPlain(double& value) {
  std::size_t bytes = 0;  // of the unit
  const DisplayScale* const matched = findScale(rest(), display_.scales, bytes);
  const std::size_t end = end_;
  if (matched && matched->isPrefix) {
    take(DisplayPieceKind::Unit, bytes);
    skipSpaces();
  } else if (matched) {
    end_ -= bytes;
  }
  PartNumber number;
  if (!readAmount(false, number)) return false;
  skipSpaces();
  const DisplayScale* const scale = matched                       ? matched
                                    : display_.scales.size() == 1 ? &display_.scales.front()
                                                                  : nullptr;
  if (at_ != end_ || !scale) return refuseUnit(matched ? end_ : end);
  end_ = end;
  if (matched && !matched->isPrefix) take(DisplayPieceKind::Unit, bytes);
  double amount = 0.0;
  if (display_.form.kind == NumberForm::Kind::Fraction && number.places.empty()) {
    if (number.whole.size() > mostWholeDigits) return refuseRange();
    Natural count = naturalOf(number.whole);
    if (!divide(count, number, amount)) return false;
  } else if (!readDecimal(number, amount)) {
    return false;
  }
  value = scale->value(isNegative_ ? -amount : amount);
  isNegative_ = false;
  return std::isfinite(value) || refuseRange();
}

/// Refuses what follows the number.
bool DisplayReader::refuseUnit(std::size_t end) {
  std::string units;
  for (const DisplayScale& scale : display_.scales)
    units += (units.empty() ? "" : ", ") + inQuotes(scale.text);
  if (at_ == end) return refuse(at_, end, "The unit is missing. Write one of " + units + '.');
  const std::string shown = inQuotes(between(at_, end));
  if (display_.scales.size() == 1 && display_.scales.front().text.empty())
    return refuse(at_, end, shown + " is not expected. Write only a number.");
  return refuse(at_, end, shown + " is not expected. The unit must be " + units + '.');
}

std::unique_ptr<DisplayReadingContents> DisplayReader::read() {
  trim();
  const std::size_t begin = at_;
  readSign();
  begin_ = at_;
  double value = 0.0;
  made_->isRead = display_.form.layout ? readComposite(value) : readPlain(value);
  if (made_->isRead) skipSpaces();
  if (made_->isRead && display_.form.layout && at_ != end_)
    made_->isRead = refuse(at_, end_, inQuotes(between(at_, end_)) + " is not expected.");
  if (made_->isRead && display_.form.layout) {
    value = isNegative_ ? -value : value;
    value = display_.scales.front().value(value);
    made_->isRead = std::isfinite(value) || refuseRange();
  }
  made_->value = made_->isRead ? value : std::numeric_limits<double>::quiet_NaN();
  if (made_->isRead) made_->span = {0, begin, 0, end_};
  made_->text = text_;
  return std::move(made_);
}

}  // namespace

std::unique_ptr<DisplayReadingContents> readDisplayed(const DisplayContents& display,
                                                      std::string_view text) {
  return DisplayReader(display, text).read();
}

}  // namespace Units
