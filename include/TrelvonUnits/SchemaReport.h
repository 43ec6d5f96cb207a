#pragma once

#include <TrelvonUnits/Export.h>
#include <TrelvonUnits/Shared.h>
#include <TrelvonUnits/UnitsEngine.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// @file
/// Loaders that report what is wrong in schema files, where it is, and how to fix it.
///
/// `SchemaUtility` silently skips files that are not definitions. The functions here load by the
/// same rules, but report on every file. docs/reports.md lists all findings.
///
/// Texts are returned as they were found: an id in a sentence may contain any bytes. Only `toText`,
/// `toJson` and `toSarif` always return UTF-8: they show other bytes as `\xNN`.
namespace Schemas {

/// How bad a finding is.
enum class Severity {
  Error,    ///< The engine refuses a text, or cannot build a definition, or a file cannot be read.
  Warning,  ///< A lint: it loads, but may cause trouble later.
};

/// What became of a file.
enum class FileFate {
  Loaded,      ///< The engine has its definition.
  Sound,       ///< It could be loaded, but was not: there are errors elsewhere, or nothing loads.
  LeftOut,     ///< It can be read, but not built. `FileReport::getReason` says why.
  Refused,     ///< It is not a definition, or its type id is taken.
  Unreadable,  ///< It cannot be opened, or cannot be read to the end.
  PassedOver,  ///< Loaders do not read a file with this name or in this place.
  NotReached,  ///< The report ended before it. See `ReportOptions::keepGoing`.
};

/// A place in a text. Lines end in a line feed; lines and columns count from 1.
struct TextPosition {
  std::size_t offset = 0;       ///< In bytes, from the start of the text.
  std::size_t line = 1;         ///< From 1.
  std::size_t column = 1;       ///< In bytes.
  std::size_t columnPoint = 1;  ///< In code points. A byte that is not UTF-8 counts as one.
};

/// A place that is related to a finding, such as the other file with the same type id.
class TRELVONUNITS_API RelatedPlace {
 public:
  RelatedPlace(const RelatedPlace& other) noexcept;
  ~RelatedPlace();
  RelatedPlace& operator=(const RelatedPlace&) = delete;

  std::string getFile() const;      ///< As `FileReport::getPath`.
  TextPosition getBegin() const;    ///< At the first byte.
  TextPosition getEnd() const;      ///< After the last byte.
  std::string getSentence() const;  ///< What is there: "It is first used here.".

 private:
  friend class ReportMaker;

  struct Contents;
  explicit RelatedPlace(const Contents* contents) noexcept;
  const Units::Shared<Contents> contents_;
};

/// One fault or lint. Copies share their contents.
class TRELVONUNITS_API Finding {
 public:
  Finding(const Finding& other) noexcept;
  ~Finding();
  Finding& operator=(const Finding&) = delete;

  Severity getSeverity() const;  ///< Error or warning.

  /// Identifies the kind of finding; the same in all versions: "missing-reference".
  std::string getId() const;

  std::string getFile() const;  ///< As `FileReport::getPath`; empty if no file is to blame.

  /// Where in the file. Both are the beginning of the file if the finding is about all of it.
  TextPosition getBegin() const;
  TextPosition getEnd() const;  ///< After the last byte.

  /// What is wrong. For an error that an engine finds, this is exactly the engine's message.
  std::string getSentence() const;

  /// How to fix it; may be empty.
  std::string getAdvice() const;

  /// For a circle: the definitions in order, starting with the one where the finding is.
  std::vector<RelatedPlace> getRelatedPlaces() const;

 private:
  friend class ReportMaker;

  struct Contents;
  explicit Finding(const Contents* contents) noexcept;
  const Units::Shared<Contents> contents_;
};

/// What became of one file. Copies share their contents.
class TRELVONUNITS_API FileReport {
 public:
  FileReport(const FileReport& other) noexcept;
  ~FileReport();
  FileReport& operator=(const FileReport&) = delete;

  std::string getPath() const;    ///< Begins with the folder as given. For a text, its shown name.
  FileFate getFate() const;       ///< Whether its definition was loaded, and if not, why not.
  std::string getTypeId() const;  ///< Of its definition; empty if it has none.

  /// Why it is left out: "needs example.unit:a-1.0.0, which is left out"; otherwise empty.
  std::string getReason() const;

 private:
  friend class ReportMaker;

  struct Contents;
  explicit FileReport(const Contents* contents) noexcept;
  const Units::Shared<Contents> contents_;
};

/// What was found in some folders or in a text. Copies share their contents, which never change.
class TRELVONUNITS_API SchemaReport {
 public:
  SchemaReport(const SchemaReport& other) noexcept;
  ~SchemaReport();
  SchemaReport& operator=(const SchemaReport&) = delete;

  /// By folder in the given order, file in byte order of paths, and place.
  std::vector<Finding> getFindings() const;

  /// All schema files, and files that are skipped with a finding, in the same order.
  std::vector<FileReport> getFiles() const;

  std::size_t getErrorCount() const;              ///< Of the findings.
  std::size_t getWarningCount() const;            ///< Of the findings.
  std::size_t getFileCount(FileFate fate) const;  ///< Of the files with this fate.

  /// In the style of compilers, a line for each finding and place, and the counts in the last line:
  ///
  ///   a/sub/foot.json:5:37: error: Dependency ... is missing ... [missing-reference]
  ///
  /// Columns count code points. Control characters are shown as `\xNN`.
  std::string toText() const;

  std::string toJson() const;   ///< One object, in the format that docs/reports.md describes.
  std::string toSarif() const;  ///< A SARIF 2.1.0 log, for code hosts and editors.

 private:
  friend class ReportMaker;

  struct Contents;
  explicit SchemaReport(const Contents* contents) noexcept;
  const Units::Shared<Contents> contents_;
};

/// Keeps these members in all versions: new options will come with new functions.
struct ReportOptions {
  /// Whether to look for what loads but may cause trouble later.
  bool lint = true;

  /// Whether to leave out the files with errors and all definitions that need them, and load the
  /// rest. If false, nothing is loaded if there is any error.
  bool leaveOutWhatCannotBuild = false;

  /// Whether to continue after an error. If false, the report ends with the first one, and nothing
  /// is loaded.
  bool keepGoing = true;

  /// Names that users give to variables in formulas. A symbol with such a text is a finding. If
  /// empty, the library uses its own list.
  std::optional<std::vector<std::string>> variableNames = std::nullopt;
};

/// Loads folders of schema files by the rules of `SchemaUtility`, and reports.
///
///   const Schemas::SchemaReport report =
///       Schemas::loadFolders({"schemas/core", "schemas/symbols"}, *engine, {});
///   std::cout << report.toText();
///
/// The folders are read one after the other: a folder may refer to what the engine stores and to
/// folders before it. In each, files are read in byte order of their paths. If two files have the
/// same type id, the first one gets it. Without errors, the engine is filled as by one
/// `addDefinitionsFromFolder` for each folder. With errors, it does not change, unless the options
/// ask to leave out what cannot be built.
///
/// Unlike in `SchemaUtility`, a file or folder that cannot be read is an error in the report and
/// does not stop the load.
///
/// @param folders  paths, in the order in which they are loaded; may be empty.
/// @param engine   any engine. What was pending in it is built with the folders; if that fails, all
///                 of it is dropped, and the report has an error.
/// @param options  what to look for, and what to do after an error.
/// @throws std::logic_error  "schema folder not found: FOLDER": one of `folders` does not exist or
///                           is not a folder. The engine is unchanged.
/// @throws std::bad_alloc    the engine stores everything that it was to load, or nothing. What was
///                           pending is built, dropped or still pending.
TRELVONUNITS_API SchemaReport loadFolders(const std::vector<std::string>& folders,
                                          Units::UnitsEngine& engine, const ReportOptions& options);

/// A schema text, and the name that a report shows instead of a path.
struct NamedText {
  std::string name;  ///< Any text; findings show it as the file.
  std::string text;  ///< A definition, in JSON.
};

/// Loads schema texts that a host has in memory, as `loadFolders` loads the files of one folder,
/// and reports. The texts are loaded in the given order.
///
/// @param texts    any bytes; each is read up to the first NUL.
/// @param engine   as for `loadFolders`.
/// @param options  as for `loadFolders`.
/// @throws std::bad_alloc  as for `loadFolders`.
TRELVONUNITS_API SchemaReport loadTexts(const std::vector<NamedText>& texts,
                                        Units::UnitsEngine& engine, const ReportOptions& options);

/// The same for the texts of a bundle. `SchemaBundle` skips a text that is not a definition; here
/// it is an error in the report.
///
/// @param bundle     the bytes of a bundle; see `SchemaBundle`.
/// @param shownName  the texts are named after it: "my.bundle#1", "my.bundle#2" ...
/// @param engine     as for `loadFolders`.
/// @param options    as for `loadFolders`.
/// @throws std::logic_error  "not a schema bundle". The engine is unchanged.
/// @throws std::bad_alloc    as for `loadFolders`.
TRELVONUNITS_API SchemaReport loadBundle(std::string_view bundle, const std::string& shownName,
                                         Units::UnitsEngine& engine, const ReportOptions& options);

/// Checks one schema text, for example in an editor, against an engine that has what it refers to,
/// but not the definition itself: its type id would be taken.
///
/// Finds what `loadFolders` finds in a file, except lints that need the whole load: units that no
/// quantity lists, or that have no symbol that every keyboard can type.
///
/// @param text       any bytes; read up to the first NUL, as by an engine.
/// @param shownName  shown instead of a path in the report.
/// @param engine     any engine; only its const operations are called.
/// @throws std::bad_alloc  there is not enough memory.
TRELVONUNITS_API SchemaReport checkText(std::string_view text, const std::string& shownName,
                                        const Units::UnitsEngine& engine);

}  // namespace Schemas
