#include "json/JsonText.h"
#include "naming/MappingReader.h"
#include "naming/UnitCodesContents.h"

#include <memory>
#include <set>

namespace Units {

UnitCodes::UnitCodes() : UnitCodes(new Contents) {}
UnitCodes::UnitCodes(const Contents* contents) noexcept : contents_(contents) {}

// Contents are shared, so a move is a copy.
UnitCodes::UnitCodes(const UnitCodes& other) noexcept = default;
UnitCodes::~UnitCodes() = default;

UnitCodes UnitCodes::fromText(std::string_view json) {
  auto contents = std::make_unique<Contents>();
  readMapping(json, contents->units);
  return UnitCodes(contents.release());
}

UnitCodes UnitCodes::with(const UnitCodes& other) const {
  auto contents = std::make_unique<Contents>();
  contents->units = contents_->units;
  for (const auto& [unit, systems] : other.contents_->units) {
    for (const auto& [system, codes] : systems) {
      std::vector<std::string>& all = contents->units[unit][system];
      all.insert(all.end(), codes.begin(), codes.end());
    }
  }
  return UnitCodes(contents.release());
}

std::vector<std::string> UnitCodes::getSystems() const {
  std::set<std::string> names;
  for (const auto& [unit, systems] : contents_->units)
    for (const auto& [system, codes] : systems) names.insert(system);
  return {names.begin(), names.end()};
}

std::vector<std::string> UnitCodes::getUnits() const {
  std::vector<std::string> all;
  all.reserve(contents_->units.size());
  for (const auto& [unit, systems] : contents_->units) all.push_back(unit);
  return all;
}

std::vector<std::string> UnitCodes::getCodes(const std::string& unitTypeId,
                                             const std::string& system) const {
  const auto unit = contents_->units.find(unitTypeId);
  if (unit == contents_->units.end()) return {};
  const auto codes = unit->second.find(system);
  return codes == unit->second.end() ? std::vector<std::string>() : codes->second;
}

std::string UnitCodes::toText() const {
  JsonText json;
  json.beginObject();
  json.key("version").whole(1);
  json.key("codes").beginObject();
  for (const auto& [unit, systems] : contents_->units) {
    json.text(unit);
    json.beginObject();
    for (const auto& [system, codes] : systems) {
      json.text(system);
      json.beginArray();
      for (const std::string& code : codes) json.text(code);
      json.endArray();
    }
    json.endObject();
  }
  json.endObject();
  json.endObject();
  return json.str();
}

}  // namespace Units
