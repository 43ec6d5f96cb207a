#include "tools/trelvon/BundleIndex.h"

#include "tools/trelvon/Failure.h"
#include "tools/trelvon/Files.h"
#include "tools/trelvon/Json.h"

#include <TrelvonUnits/SchemaBundle.h>
#include <TrelvonUnits/UnitNames.h>

#include <exception>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

namespace tool {

namespace {

std::string firstLine(std::uintmax_t bundleSize) {
  return "TrelvonUnits-bundle-index-1\t" + std::to_string(bundleSize) + '\n';
}

bool fits(const std::string& text) { return text.find_first_of("\t\n") == std::string::npos; }

/// Where the definitions of a bundle are, as "OFFSET:SIZE".
std::map<std::string, std::string> placesIn(const std::string& path, std::string_view bundle) {
  std::map<std::string, std::string> places;
  forEachBundled(path, bundle, [&](std::string_view text) {
    const auto notes = readSchemaNotes(text);
    if (notes)
      places.emplace(notes->typeId, std::to_string(text.data() - bundle.data()) + ':' +
                                        std::to_string(text.size()));
  });
  return places;
}

std::string lineOf(const Units::UnitsEngine& engine, const std::string& unit,
                   const std::map<std::string, std::string>& places) {
  std::string line = "unit\t" + unit + '\t' + places.at(unit);
  for (const std::string& needed : engine.getDependencies(unit)) line += ' ' + places.at(needed);
  return line;
}

/// The rest of the line that begins with a text. Lines are in byte order. Empty if there is none.
std::string_view restOfLine(std::string_view lines, const std::string& beginning) {
  std::size_t low = 0, high = lines.size();
  while (low < high) {
    const std::size_t middle = low + (high - low) / 2;
    const std::size_t feed = middle == 0 ? lines.npos : lines.rfind('\n', middle - 1);
    const std::size_t begin = feed == lines.npos || feed < low ? low : feed + 1;
    const std::size_t end = lines.find('\n', middle);
    if (end == lines.npos) return {};
    const std::string_view line = lines.substr(begin, end - begin);
    const int order = line.substr(0, beginning.size()).compare(beginning);
    if (order == 0) return line.substr(beginning.size());
    if (order < 0)
      low = end + 1;
    else
      high = begin;
  }
  return {};
}

/// Adds the definitions at some places of a bundle, each once.
bool addPlaces(std::istream& bundle, std::string_view list, std::set<std::string>& added,
               Units::UnitsEngine& engine) {
  std::istringstream places{std::string(list)};
  for (std::string place; places >> place;) {
    if (!added.insert(place).second) continue;
    std::size_t offset = 0, size = 0;
    char colon = 0;
    std::istringstream(place) >> offset >> colon >> size;
    std::string text(size, '\0');
    bundle.seekg(static_cast<std::streamoff>(offset));
    if (!bundle.read(text.data(), static_cast<std::streamsize>(size))) return false;
    engine.addDefinition(text);
  }
  return true;
}

SomeUnits load(const std::string& indexPath, const std::string& bundlePath,
               const std::vector<std::string>& names) {
  std::error_code error;
  std::ifstream indexFile(indexPath, std::ios::binary), bundle(bundlePath, std::ios::binary);
  const std::string first = firstLine(std::filesystem::file_size(bundlePath, error));
  std::string index(error ? 0 : std::filesystem::file_size(indexPath, error), '\0');
  if (error || !indexFile.read(index.data(), static_cast<std::streamsize>(index.size())) ||
      index.compare(0, first.size(), first) != 0)
    return {};

  SomeUnits some = {std::unique_ptr<Units::UnitsEngine>(Units::CreateUnitsEngine()), {}};
  std::set<std::string> added;
  const std::string_view lines = std::string_view(index).substr(first.size());
  for (const std::string& name : names) {
    const std::string typeId(restOfLine(lines, "name\t" + name + '\t'));
    const std::string_view places = restOfLine(lines, "unit\t" + typeId + '\t');
    if (typeId.empty() || places.empty() || !addPlaces(bundle, places, added, *some.engine))
      return {};
    some.typeIds[name] = typeId;
  }
  some.engine->buildSchemas();
  return some;
}

}  // namespace

std::string indexOfBundle(const std::string& path, std::string_view bundle) {
  const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  Schemas::SchemaBundle::addDefinitionsFromBuffer(bundle, *engine);
  const Units::UnitNames names(*engine);
  const auto places = placesIn(path, bundle);
  std::set<std::string> lines;
  for (const auto& [typeId, unit] : engine->getUnits()) {
    if (!fits(typeId)) continue;
    lines.insert(lineOf(*engine, typeId, places));
    for (const Units::UnitName& name : names.namesOf(unit))
      if (fits(name.getText()) && names.findBest(name.getText()).size() == 1)
        lines.insert("name\t" + name.getText() + '\t' + typeId);
  }
  std::string index = firstLine(bundle.size());
  for (const std::string& line : lines) index += line + '\n';
  return index;
}

SomeUnits loadByIndex(const std::string& indexPath, const std::string& bundlePath,
                      const std::vector<std::string>& names) {
  try {
    return load(indexPath, bundlePath, names);
  } catch (const std::exception&) {
    return {};  // not the index of this bundle; loading the whole bundle will report what is wrong
  }
}

}  // namespace tool
