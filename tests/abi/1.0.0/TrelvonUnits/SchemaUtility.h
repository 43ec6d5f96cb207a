#pragma once

#include <TrelvonUnits/Export.h>
#include <TrelvonUnits/UnitsEngine.h>

#include <string>

namespace Schemas {

/// Fills engines from schema files.
class TRELVONUNITS_API SchemaUtility {
 public:
  SchemaUtility() = delete;

  /// Gives every schema file below a folder to an engine, then builds them all.
  ///
  /// Read are the files with the exact extension ".json" in sub folders at any depth; files that
  /// lie directly in `folder`, and links to folders, are passed over. So is, without a report, a
  /// file that the engine refuses with a ValidationException: compare what is registered with what
  /// was expected. Files come in the order in which the file system lists them, which matters only
  /// where two files claim one type id; the first one read keeps it.
  ///
  /// @param folder  path of the schema folder.
  /// @param engine  any engine. It gets one `addDefinition` a file and one `buildSchemas` at the
  ///                end, which builds what was pending before the call as well.
  /// @throws std::logic_error  "schema folder not found" when `folder` is missing or no folder;
  ///                           "failed to open schema file" or "failed to read schema file" for a
  ///                           file that cannot be opened or breaks off. Files read before it stay
  ///                           pending.
  /// @throws std::filesystem::filesystem_error  a status or a folder cannot be read. Files read
  ///                                            before it stay pending.
  /// @throws ValidationException  the build fails; its whole batch is dropped.
  static void addDefinitionsFromFolder(const std::string& folder, Units::UnitsEngine& engine);
};

}  // namespace Schemas
