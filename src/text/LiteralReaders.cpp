#include "text/LiteralReaders.h"

#include <cmath>
#include <cstddef>

namespace Units {

namespace {

bool beginsWithWord(std::string_view text, std::string_view word) {
  if (text.front() != word.front() || text.substr(0, word.size()) != word) return false;
  return text.size() == word.size() || !isLetter(text[word.size()]) || !isLetter(word.back());
}

}  // namespace

bool isAtEnd(std::string_view text) {
  stripSpaces(text);
  return text.empty();
}

bool stripLeadingWord(std::string_view& text, const Words& words) {
  std::string_view rest = text;
  stripSpaces(rest);
  if (rest.empty()) return false;
  std::size_t longest = 0;
  for (const std::string_view word : words) {
    if (word.empty()) break;
    if (word.size() > longest && beginsWithWord(rest, word)) longest = word.size();
  }
  if (longest == 0) return false;
  text = rest.substr(longest);
  return true;
}

bool readWholeNumber(std::string_view& text, double& sum) {
  std::string_view rest = text;
  stripSpaces(rest);
  const LeadingNumber number = readClassicDigits(rest);
  if (number.length == 0) return false;
  sum += number.value;
  text = rest.substr(number.length);
  return true;
}

LeadingNumber stripNumber(std::string_view& text) {
  std::string_view rest = text;
  stripSpaces(rest);
  const LeadingNumber number = readClassicDouble(rest);
  if (number.length > 0) text = rest.substr(number.length);
  return number;
}

bool addNumber(double number, double& sum) {
  const double newSum = sum + number;
  if (!std::isfinite(number) || newSum < 0.0) return false;
  sum = newSum;
  return true;
}

bool readNumber(std::string_view& text, double& sum) {
  std::string_view rest = text;
  const LeadingNumber number = stripNumber(rest);
  if (number.length == 0 || !addNumber(number.value, sum)) return false;
  text = rest;
  return true;
}

}  // namespace Units
