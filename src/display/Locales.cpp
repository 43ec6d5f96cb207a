#include "display/Locales.h"

#include <algorithm>
#include <iterator>

namespace Units {

namespace {

constexpr std::string_view noBreak = "\xC2\xA0";           // U+00A0
constexpr std::string_view narrow = "\xE2\x80\xAF";        // U+202F
constexpr std::string_view apostrophe = "\xE2\x80\x99";    // U+2019
constexpr std::string_view arabicDecimal = "\xD9\xAB";     // U+066B
constexpr std::string_view arabicGroup = "\xD9\xAC";       // U+066C
constexpr std::string_view sign = "\xE2\x88\x92";          // U+2212
constexpr std::string_view leftToRight = "\xE2\x80\x8E-";  // U+200E
constexpr std::string_view leftSign = "\xE2\x80\x8E\xE2\x88\x92";
constexpr std::string_view arabicMinus = "\xD8\x9C-";        // U+061C
constexpr std::string_view arabicZero = "\xD9\xA0";          // U+0660
constexpr std::string_view persianZero = "\xDB\xB0";         // U+06F0
constexpr std::string_view bengaliZero = "\xE0\xA7\xA6";     // U+09E6
constexpr std::string_view devanagariZero = "\xE0\xA5\xA6";  // U+0966

/// From the Unicode Common Locale Data Repository (CLDR), version 48, except the apostrophe of
/// Switzerland, which is that of earlier versions: the straight one is the mark of feet.
constexpr DisplayLocale locales[] = {
    {"ar-EG", "", arabicDecimal, arabicGroup, arabicMinus, arabicZero, 3, 1},
    {"bg", "BG", ",", noBreak, "-", "0", 3, 2},
    {"bn", "BD", ".", ",", "-", bengaliZero, 2, 1},
    {"cs", "CZ", ",", noBreak, "-", "0", 3, 1},
    {"da", "DK", ",", ".", "-", "0", 3, 1},
    {"de", "DE", ",", ".", "-", "0", 3, 1},
    {"de-AT", "", ",", noBreak, "-", "0", 3, 1},
    {"de-CH", "", ".", apostrophe, "-", "0", 3, 1},
    {"el", "GR", ",", ".", "-", "0", 3, 1},
    {"en", "US", ".", ",", "-", "0", 3, 1},
    {"en-GB", "", ".", ",", "-", "0", 3, 1},
    {"en-IN", "", ".", ",", "-", "0", 2, 1},
    {"es", "ES", ",", ".", "-", "0", 3, 2},
    {"es-MX", "", ".", ",", "-", "0", 3, 1},
    {"fa", "IR", arabicDecimal, arabicGroup, leftSign, persianZero, 3, 1},
    {"fi", "FI", ",", noBreak, sign, "0", 3, 1},
    {"fr", "FR", ",", narrow, "-", "0", 3, 1},
    {"fr-CA", "", ",", noBreak, "-", "0", 3, 1},
    {"fr-CH", "", ",", narrow, "-", "0", 3, 1},
    {"he", "IL", ".", ",", leftToRight, "0", 3, 1},
    {"hi", "IN", ".", ",", "-", "0", 2, 1},
    {"hu", "HU", ",", noBreak, "-", "0", 3, 2},
    {"id", "ID", ",", ".", "-", "0", 3, 1},
    {"it", "IT", ",", ".", "-", "0", 3, 2},
    {"it-CH", "", ".", apostrophe, "-", "0", 3, 2},
    {"ja", "JP", ".", ",", "-", "0", 3, 1},
    {"ko", "KR", ".", ",", "-", "0", 3, 1},
    {"mr", "IN", ".", ",", "-", devanagariZero, 2, 1},
    {"nb", "NO", ",", noBreak, sign, "0", 3, 1},
    {"ne", "NP", ".", ",", "-", devanagariZero, 2, 1},
    {"nl", "NL", ",", ".", "-", "0", 3, 1},
    {"pl", "PL", ",", noBreak, "-", "0", 3, 2},
    {"pt-BR", "", ",", ".", "-", "0", 3, 1},
    {"pt-PT", "", ",", noBreak, "-", "0", 3, 2},
    {"ro", "RO", ",", ".", "-", "0", 3, 1},
    {"ru", "RU", ",", noBreak, "-", "0", 3, 1},
    {"sv", "SE", ",", noBreak, sign, "0", 3, 1},
    {"th", "TH", ".", ",", "-", "0", 3, 1},
    {"tr", "TR", ",", ".", "-", "0", 3, 1},
    {"uk", "UA", ",", noBreak, "-", "0", 3, 1},
    {"vi", "VN", ",", ".", "-", "0", 3, 1},
    {"zh", "CN", ".", ",", "-", "0", 3, 1}};

}  // namespace

const DisplayLocale* findDisplayLocale(std::string_view name) {
  std::string wanted(name);
  std::replace(wanted.begin(), wanted.end(), '_', '-');
  for (const DisplayLocale& locale : locales) {
    if (wanted == locale.name) return &locale;
    if (!locale.region.empty() &&
        wanted == std::string(locale.name).append("-").append(locale.region))
      return &locale;
  }
  return nullptr;
}

std::vector<std::string> displayLocaleNames() {
  std::vector<std::string> names;
  names.reserve(std::size(locales));
  for (const DisplayLocale& locale : locales) names.emplace_back(locale.name);
  return names;
}

}  // namespace Units
