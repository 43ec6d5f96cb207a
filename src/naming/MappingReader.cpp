#include "naming/MappingReader.h"

#include "json/TextPlaces.h"

#include <algorithm>
#include <stdexcept>

namespace Units {

namespace {

[[noreturn]] void refuse(std::string_view json, std::size_t offset, const std::string& reason) {
  const std::string_view before = json.substr(0, offset);
  const auto line = std::count(before.begin(), before.end(), '\n') + 1;
  const std::size_t column = before.size() - (before.rfind('\n') + 1) + 1;  // npos + 1 is 0
  throw std::logic_error("unit codes, " + std::to_string(line) + ':' + std::to_string(column) +
                         ": " + reason);
}

class MappingReader {
 public:
  explicit MappingReader(std::string_view json) : json_(json), places_(json) {}

  void read(std::map<std::string, CodesBySystem>& units) const {
    if (places_.fault()) refuse(json_, places_.fault()->offset, places_.fault()->reason);
    const std::size_t version = places_.member(0, "version");
    if (version == TextPlaces::none || textOf(version) != "1")
      refuse(json_, version == TextPlaces::none ? 0 : places_.value(version).begin,
             "\"version\" must be 1");
    const std::size_t rows = places_.member(0, "codes");
    if (rows == TextPlaces::none) refuse(json_, 0, "\"codes\" is missing");
    require(rows, TextPlaces::Kind::Object, "\"codes\" must be an object");
    forEachPart(rows, [&](std::size_t row) {
      require(row, TextPlaces::Kind::Object, "the codes of a unit must be an object");
      readRow(row, units[std::string(places_.value(row).name)]);
    });
  }

 private:
  std::string_view textOf(std::size_t value) const {
    const TextPlaces::Value& place = places_.value(value);
    return json_.substr(place.begin, place.end - place.begin);
  }

  void require(std::size_t value, TextPlaces::Kind kind, const char* reason) const {
    if (places_.value(value).kind != kind) refuse(json_, places_.value(value).begin, reason);
  }

  template <class Use>
  void forEachPart(std::size_t value, Use use) const {
    for (std::size_t part = places_.value(value).first; part != TextPlaces::none;
         part = places_.value(part).next)
      use(part);
  }

  void readRow(std::size_t row, CodesBySystem& systems) const {
    forEachPart(row, [&](std::size_t list) {
      if (places_.value(list).kind != TextPlaces::Kind::Array) return;
      std::vector<std::string>& codes = systems[std::string(places_.value(list).name)];
      forEachPart(list, [&](std::size_t code) {
        require(code, TextPlaces::Kind::String, "a code must be a string");
        codes.emplace_back(places_.value(code).text);
      });
    });
  }

  const std::string_view json_;
  const TextPlaces places_;
};

}  // namespace

void readMapping(std::string_view json, std::map<std::string, CodesBySystem>& units) {
  MappingReader(json).read(units);
}

}  // namespace Units
