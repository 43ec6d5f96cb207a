#pragma once

#include <TrelvonUnits/Export.h>
#include <TrelvonUnits/UnitsEngine.h>

#include <string>
#include <string_view>

namespace Schemas {

/// Fills engines from bundles. A bundle holds many schema texts in one piece, for a fast start and
/// for hosts without a file system.
///
/// The format is simple enough for any program to write:
///
///   TrelvonUnits-schema-bundle-1<LF>
///   {"typeid": ...}<NUL>
///   {"typeid": ...}<NUL>
///
/// that is, one header line, ended by a line feed, and then the schema texts, each ended by a NUL
/// byte and directly followed by the next. (No text can contain a NUL, since schema texts are read
/// only up to the first one.) `trelvon bundle` writes the files that `SchemaUtility` would read in some
/// folders into one bundle.
class TRELVONUNITS_API SchemaBundle {
 public:
  SchemaBundle() = delete;  ///< All functions are static.

  /// Adds every schema text of a bundle to an engine, in order, then builds them all.
  ///
  /// The result is that of `SchemaUtility::addDefinitionsFromFolder` for a folder that lists its
  /// files in this order. A text that the engine rejects with a ValidationException is skipped
  /// silently; to see why, add the texts with `addDefinition` one by one.
  ///
  /// @param bundle  the bytes of a bundle; not needed after the call. A header line alone is a
  ///                valid bundle without definitions.
  /// @param engine  any engine. The call makes one `addDefinition` per text and one `buildSchemas`
  ///                at the end, which also builds what was pending before the call.
  /// @throws std::logic_error     "not a schema bundle": the header line is missing, or the last
  ///                              text has no NUL at its end. The engine is unchanged.
  /// @throws ValidationException  the build fails; all pending schemas are dropped.
  static void addDefinitionsFromBuffer(std::string_view bundle, Units::UnitsEngine& engine);

  /// Reads a bundle from a file, then does the same.
  ///
  /// @param file    path of the bundle. The whole file is read into memory for the call.
  /// @param engine  as above.
  /// @throws std::logic_error     "failed to open schema bundle" or "failed to read schema bundle",
  ///                              with the engine unchanged; or as above.
  /// @throws ValidationException  as above.
  static void addDefinitionsFromFile(const std::string& file, Units::UnitsEngine& engine);
};

}  // namespace Schemas
