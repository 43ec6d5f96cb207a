#pragma once

#include <TrelvonUnits/TrelvonUnits.h>

#include <cstddef>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

using Texts = std::vector<std::string>;

inline std::string readFile(const std::filesystem::path& path) {
  std::string text;
  char buffer[65536];
  std::FILE* const file = std::fopen(path.c_str(), "rb");
  if (file == nullptr) return text;
  for (std::size_t length; (length = std::fread(buffer, 1, sizeof buffer, file)) > 0;)
    text.append(buffer, length);
  std::fclose(file);
  return text;
}

/// The schema texts below a folder, in the order of the file system.
inline Texts readTexts(const std::filesystem::path& root) {
  Texts texts;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
    const std::filesystem::path& path = entry.path();
    if (entry.is_regular_file() && path.extension() == ".json" && path.parent_path() != root &&
        path.filename() != "codes.json")
      texts.push_back(readFile(path));
  }
  return texts;
}

/// The texts of all shipped definitions.
inline Texts readCatalog() { return readTexts(TRELVON_SCHEMAS); }

inline std::shared_ptr<Units::UnitsEngine> load(const Texts& texts) {
  std::shared_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  for (const std::string& text : texts) engine->addDefinition(text);
  engine->buildSchemas();
  return engine;
}
