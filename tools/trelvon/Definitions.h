#pragma once

#include "tools/trelvon/Arguments.h"

#include <TrelvonUnits/UnitCodes.h>
#include <TrelvonUnits/UnitNames.h>
#include <TrelvonUnits/UnitsEngine.h>

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tool {

/// The definitions that a command works with: the catalog's bundle, unless `--only` is given, and
/// then each folder of `--load`. They are loaded when they are first used.
class Definitions {
 public:
  /// @param report  receives a sentence for each fault in a folder that is loaded anyway.
  Definitions(const Arguments& arguments, std::function<void(const std::string&)> report);
  Definitions(const Definitions&) = delete;
  Definitions& operator=(const Definitions&) = delete;

  /// Loads a folder after the others, as `--load` does, unless it is one of them. Must be called
  /// before `engine` or `unload`.
  void load(const std::string& folder);

  /// Forgets what was loaded, to load it again when it is next used.
  void unload();

  /// @throws Failure  the catalog or a folder is not there; with `--strict`, a folder is faulty.
  Units::UnitsEngine& engine();
  const Units::UnitNames& names();

  /// Loads only the units with these names, if they are in the catalog and nothing else is to be
  /// loaded; otherwise does nothing. `engine` then has only a part of the catalog.
  void loadOnly(const std::vector<std::string>& unitNames);

  /// The type id of a name that was given to `loadOnly`; empty if it loaded nothing.
  std::string typeIdOf(const std::string& unitName) const;

  /// The names with the codes of other systems. They take longer to make.
  /// @throws Failure  a mapping of codes is faulty.
  const Units::UnitNames& namesWithCodes();

  /// The codes of the catalog and of the folders, from the file `codes.json` directly in each.
  const Units::UnitCodes& codes();

  /// Calls a function for every text that was loaded, in order, with the path of its file.
  void forEachText(const std::function<void(const std::string&, std::string_view)>& action) const;

  /// The path of a file that is installed next to the catalog.
  static std::string besideCatalog(const std::string& name);

 private:
  void loadCatalog();
  void loadFolder(const std::string& folder);

  bool hasCatalog_;
  bool isStrict_;
  std::vector<std::string> folders_;
  std::function<void(const std::string&)> report_;
  std::unique_ptr<Units::UnitsEngine> engine_;
  std::map<std::string, std::string> typeIds_;  // by name, of units that were loaded alone
  std::optional<Units::UnitNames> names_;
  std::optional<Units::UnitCodes> codes_;
  std::optional<Units::UnitNames> namesWithCodes_;
};

}  // namespace tool
