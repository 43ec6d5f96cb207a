#pragma once

#include <TrelvonUnits/Export.h>
#include <TrelvonUnits/UnitsEngine.h>

#include <string>

namespace Schemas {

/// Fills engines from folders of schema files.
class TRELVONUNITS_API SchemaUtility {
 public:
  SchemaUtility() = delete;  ///< All functions are static.

  /// Adds every schema file below a folder to an engine, then builds them all.
  ///
  ///   Schemas::SchemaUtility::addDefinitionsFromFolder("schemas/core", *engine);
  ///
  /// Reads files named `*.json` at any depth below the top level: `core/length/foot.json`, but not
  /// `core/foot.json`. The extension must match exactly; `foot.JSON` is not read. Symbolic links to
  /// folders are not followed.
  ///
  /// A file that the engine rejects with a ValidationException is skipped silently. `loadFolders` in
  /// SchemaReport.h loads by the same rules and reports such files.
  ///
  /// The order of the files is that of the file system. It matters only if two files have the same
  /// type id: the first one read wins, and the other is skipped.
  ///
  /// @param folder  path of the schema folder.
  /// @param engine  any engine. The call makes one `addDefinition` per file and one `buildSchemas`
  ///                at the end, which also builds what was pending before the call.
  /// @throws std::logic_error  "schema folder not found": `folder` does not exist or is not a
  ///                           folder; "failed to open schema file" or "failed to read schema
  ///                           file": a file cannot be opened, or a read error occurs.
  /// @throws std::filesystem::filesystem_error  the status of an entry cannot be determined, or a
  ///                                            folder cannot be listed.
  /// @throws ValidationException  the build fails; all pending schemas are dropped. After any of
  ///                              the other exceptions, the files read so far stay pending.
  static void addDefinitionsFromFolder(const std::string& folder, Units::UnitsEngine& engine);
};

}  // namespace Schemas
