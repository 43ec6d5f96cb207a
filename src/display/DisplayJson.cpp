#include "display/DisplayContents.h"
#include "display/DisplayMaker.h"
#include "json/JsonText.h"
#include "json/TextPlaces.h"
#include "model/ShownText.h"
#include "text/ClassicNumber.h"

#include <algorithm>
#include <array>
#include <set>

namespace Units {

namespace {

constexpr std::array<std::string_view, 3> minusWords = {"locale", "hyphen", "sign"};

class OptionsReader {
 public:
  explicit OptionsReader(std::string_view json) : json_(json), places_(json) {}

  DisplayOptions read();

 private:
  using Kind = TextPlaces::Kind;
  using Setter = void (OptionsReader::*)(std::size_t value);
  struct Member {
    std::string_view name;
    Setter set;
  };

  [[noreturn]] void refuse(std::size_t offset, const std::string& reason) const;
  void readMembers(std::size_t object, const Member* begin, const Member* end);
  void require(std::size_t value, Kind kind, const char* what) const;
  std::string textOf(std::size_t value) const;
  bool truthOf(std::size_t value) const;
  int wholeOf(std::size_t value) const;
  double numberOf(std::size_t value) const;
  std::string_view spelling(std::size_t value) const;

  template <std::string DisplayOptions::*member>
  void setText(std::size_t value) {
    options_.*member = textOf(value);
  }
  template <bool DisplayOptions::*member>
  void setTruth(std::size_t value) {
    options_.*member = truthOf(value);
  }
  template <std::optional<int> DisplayOptions::*member>
  void setWhole(std::size_t value) {
    options_.*member = wholeOf(value);
  }
  void passOver(std::size_t) {}
  void setMinus(std::size_t value);
  void setBest(std::size_t value);
  void setBestSymbols(std::size_t value);
  void setLeast(std::size_t value) { options_.leastBest = numberOf(value); }

  const std::string_view json_;
  const TextPlaces places_;
  DisplayOptions options_;
};

void OptionsReader::refuse(std::size_t offset, const std::string& reason) const {
  const std::string_view before = json_.substr(0, offset);
  const auto line = std::count(before.begin(), before.end(), '\n') + 1;
  const std::size_t column = before.size() - (before.rfind('\n') + 1) + 1;  // npos + 1 is 0
  throw ValidationException("display, " + std::to_string(line) + ':' + std::to_string(column) +
                            ": " + reason + '.');
}

void OptionsReader::require(std::size_t value, Kind kind, const char* what) const {
  const TextPlaces::Value& place = places_.value(value);
  if (place.kind == kind) return;
  const std::string name = place.name.empty() ? "this" : '"' + shownText(place.name) + '"';
  refuse(place.begin, name + " must be " + what);
}

std::string_view OptionsReader::spelling(std::size_t value) const {
  const TextPlaces::Value& place = places_.value(value);
  return json_.substr(place.begin, place.end - place.begin);
}

std::string OptionsReader::textOf(std::size_t value) const {
  require(value, Kind::String, "a text");
  return std::string(places_.value(value).text);
}

bool OptionsReader::truthOf(std::size_t value) const {
  require(value, Kind::Boolean, "true or false");
  return spelling(value) == "true";
}

double OptionsReader::numberOf(std::size_t value) const {
  require(value, Kind::Number, "a number");
  return readClassicDouble(spelling(value)).value;
}

int OptionsReader::wholeOf(std::size_t value) const {
  const std::string_view digits = spelling(value);
  constexpr std::size_t most = 9;
  if (places_.value(value).kind != Kind::Number || digits.size() > most ||
      digits.find_first_not_of("0123456789") != std::string_view::npos)
    refuse(places_.value(value).begin,
           '"' + std::string(places_.value(value).name) + "\" must be a whole number");
  return static_cast<int>(readClassicDigits(digits).value);
}

void OptionsReader::setMinus(std::size_t value) {
  const auto found = std::find(minusWords.begin(), minusWords.end(), textOf(value));
  if (found == minusWords.end())
    refuse(places_.value(value).begin, "\"minus\" must be locale, hyphen or sign");
  options_.minus = static_cast<DisplayOptions::Minus>(found - minusWords.begin());
}

void OptionsReader::setBestSymbols(std::size_t value) {
  require(value, Kind::Array, "a list of strings");
  for (std::size_t part = places_.value(value).first; part != TextPlaces::none;
       part = places_.value(part).next)
    options_.bestSymbols.push_back(textOf(part));
}

void OptionsReader::setBest(std::size_t value) {
  require(value, Kind::Object, "an object");
  static constexpr std::array<Member, 3> members = {
      {{"symbols", &OptionsReader::setBestSymbols},
       {"quantity", &OptionsReader::setText<&DisplayOptions::bestQuantity>},
       {"least", &OptionsReader::setLeast}}};
  readMembers(value, members.begin(), members.end());
}

void OptionsReader::readMembers(std::size_t object, const Member* begin, const Member* end) {
  std::set<std::string_view> names;
  for (std::size_t part = places_.value(object).first; part != TextPlaces::none;
       part = places_.value(part).next) {
    const TextPlaces::Value& place = places_.value(part);
    const std::string name = '"' + shownText(place.name) + '"';
    const Member* const found =
        std::find_if(begin, end, [&](const Member& member) { return member.name == place.name; });
    if (found == end) refuse(place.nameBegin, "there is no member " + name);
    if (!names.insert(place.name).second) refuse(place.nameBegin, name + " is given twice");
    (this->*found->set)(part);
  }
}

DisplayOptions OptionsReader::read() {
  static constexpr std::array<Member, 15> members = {
      {{"$schema", &OptionsReader::passOver},
       {"unit", &OptionsReader::setText<&DisplayOptions::unit>},
       {"symbol", &OptionsReader::setText<&DisplayOptions::symbol>},
       {"showsUnit", &OptionsReader::setTruth<&DisplayOptions::showsUnit>},
       {"places", &OptionsReader::setWhole<&DisplayOptions::places>},
       {"denominator", &OptionsReader::setWhole<&DisplayOptions::denominator>},
       {"significant", &OptionsReader::setWhole<&DisplayOptions::significant>},
       {"trims", &OptionsReader::setTruth<&DisplayOptions::trims>},
       {"groups", &OptionsReader::setTruth<&DisplayOptions::groups>},
       {"locale", &OptionsReader::setText<&DisplayOptions::locale>},
       {"decimalMark", &OptionsReader::setText<&DisplayOptions::decimalMark>},
       {"groupMark", &OptionsReader::setText<&DisplayOptions::groupMark>},
       {"minus", &OptionsReader::setMinus},
       {"noBreakSpaces", &OptionsReader::setTruth<&DisplayOptions::hasNoBreakSpaces>},
       {"best", &OptionsReader::setBest}}};
  if (const auto& fault = places_.fault()) {
    std::string_view reason = fault->reason;
    if (!reason.empty() && reason.back() == '.') reason.remove_suffix(1);
    refuse(fault->offset, std::string(reason));
  }
  require(0, Kind::Object, "an object");
  readMembers(0, members.begin(), members.end());
  return options_;
}

void writeBest(JsonText& json, const DisplayOptions& options) {
  json.key("best").beginObject();
  if (!options.bestSymbols.empty()) {
    json.key("symbols").beginArray();
    for (const std::string& symbol : options.bestSymbols) json.text(symbol);
    json.endArray();
  }
  if (!options.bestQuantity.empty()) json.key("quantity").text(options.bestQuantity);
  if (options.leastBest != 1.0) json.key("least").number(options.leastBest);
  json.endObject();
}

}  // namespace

ValueDisplay ValueDisplay::fromJson(const UnitsEngine& engine, std::string_view json) {
  return ValueDisplay(engine, OptionsReader(json.substr(0, json.find('\0'))).read());
}

std::string ValueDisplay::toJson() const {
  const DisplayOptions& options = contents_->options;
  const DisplayOptions usual;
  JsonText json;
  const auto text = [&](const char* name, const std::string& value, const std::string& standard) {
    if (value != standard) json.key(name).text(value);
  };
  const auto truth = [&](const char* name, bool value, bool standard) {
    if (value != standard) json.key(name).boolean(value);
  };
  const auto whole = [&](const char* name, const std::optional<int>& value) {
    if (value) json.key(name).whole(static_cast<std::size_t>(*value));
  };
  json.beginObject();
  text("unit", options.unit, usual.unit);
  text("symbol", options.symbol, usual.symbol);
  truth("showsUnit", options.showsUnit, usual.showsUnit);
  whole("places", options.places);
  whole("denominator", options.denominator);
  whole("significant", options.significant);
  truth("trims", options.trims, usual.trims);
  truth("groups", options.groups, usual.groups);
  text("locale", options.locale, usual.locale);
  text("decimalMark", options.decimalMark, usual.decimalMark);
  text("groupMark", options.groupMark, usual.groupMark);
  if (options.minus != usual.minus)
    json.key("minus").text(minusWords[static_cast<std::size_t>(options.minus)]);
  truth("noBreakSpaces", options.hasNoBreakSpaces, usual.hasNoBreakSpaces);
  if (!options.bestSymbols.empty() || !options.bestQuantity.empty()) writeBest(json, options);
  json.endObject();
  return json.str();
}

}  // namespace Units
