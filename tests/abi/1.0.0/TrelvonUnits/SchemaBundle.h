#pragma once

#include <TrelvonUnits/Export.h>
#include <TrelvonUnits/UnitsEngine.h>

#include <string>
#include <string_view>

namespace Schemas {

/// Fills engines from bundles: many schema texts in one piece, for fast starts and for hosts
/// without a file system.
///
/// A bundle is the line "TrelvonUnits-schema-bundle-1", ended by a line feed, and then the texts,
/// each ended by a NUL: no text can hold one, since schema texts are read up to the first. A bundle
/// is thus read in place, without a look into the texts, and can be put together by any program.
/// `scripts/make_bundle.py` makes one of the files that `SchemaUtility` would read in folders.
class TRELVONUNITS_API SchemaBundle {
 public:
  SchemaBundle() = delete;

  /// Gives every schema text of a bundle to an engine, then builds them all: with the result that
  /// `SchemaUtility::addDefinitionsFromFolder` has with a folder that lists its files in that
  /// order. A text that the engine refuses with a ValidationException is passed over without a
  /// report.
  ///
  /// @param bundle  the bytes of a bundle; none of them is needed after the call.
  /// @param engine  any engine. It gets one `addDefinition` a text and one `buildSchemas` at the
  ///                end, which builds what was pending before the call as well.
  /// @throws std::logic_error     "not a schema bundle" when it does not begin as one, or its last
  ///                              text is not ended. Nothing has changed then.
  /// @throws ValidationException  the build fails; its whole batch is dropped.
  static void addDefinitionsFromBuffer(std::string_view bundle, Units::UnitsEngine& engine);

  /// The same for a bundle in a file.
  ///
  /// @param file  path of the bundle.
  /// @throws std::logic_error  "failed to open schema bundle" or "failed to read schema bundle",
  ///                           besides the causes above.
  static void addDefinitionsFromFile(const std::string& file, Units::UnitsEngine& engine);
};

}  // namespace Schemas
