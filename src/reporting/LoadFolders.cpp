#include "loading/AddOrSkip.h"
#include "loading/BundledTexts.h"
#include "loading/SchemaFiles.h"
#include "model/DefinitionCopy.h"
#include "reporting/Batch.h"
#include "reporting/FolderWalk.h"
#include "reporting/LoadLints.h"
#include "reporting/ReportContents.h"

#include <TrelvonUnits/Exceptions.h>
#include <TrelvonUnits/SchemaReport.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <utility>

namespace Schemas {

namespace {

/// Drops what is pending in an engine, by a build that must fail. If there is no memory for that,
/// it stays pending: another build might store a part of it.
void dropPending(Units::UnitsEngine& engine) noexcept {
  try {
    engine.addDefinition(
        R"({"typeid":"trelvon.report:itself","inherits":["x:factor.derived-1."],"constants":[)"
        R"({"id":"parentFactors","value":{"trelvon.report:itself":1}}]})");
    engine.buildSchemas();
  } catch (...) {
    // As intended.
  }
}

/// Adds texts to an engine and builds them.
/// @throws  what the engine throws; then nothing is pending any more.
void build(const std::vector<FiledDefinition>& definitions, const Findings& findings,
           Units::UnitsEngine& engine) {
  try {
    for (const FiledDefinition& one : definitions)
      engine.addDefinition(findings.files[one.file].text);
  } catch (...) {
    dropPending(engine);
    throw;
  }
  engine.buildSchemas();
}

/// Looks for lints in a copy of an engine to which the definitions are added.
/// @return  false if they need something that is only pending in the engine.
bool lintInCopy(const Units::UnitsEngine& engine, const std::vector<FiledDefinition>& definitions,
                const std::vector<std::string>& variableNames, bool isWhole, Findings& findings) {
  const std::unique_ptr<Units::UnitsEngine> copy(Units::CreateUnitsEngine());
  Units::copyUnits(engine, *copy);
  const bool hasSymbol = std::any_of(
      definitions.begin(), definitions.end(),
      [](const FiledDefinition& one) { return one.definition.kind == RecordKind::Symbol; });
  if (isWhole || hasSymbol) Units::copySymbols(engine, *copy);
  if (isWhole) Units::copyQuantities(engine, *copy);
  try {
    build(definitions, findings, *copy);
  } catch (const Units::ValidationException&) {
    return false;
  }
  lintLoad({*copy, definitions, variableNames, isWhole}, findings);
  return true;
}

/// Sets the text of the last file, up to the first NUL.
void setText(std::string_view text, bool lint, Findings& findings) {
  const std::size_t end = std::min(text.find('\0'), text.size());
  findings.files.back().text = text.substr(0, end);
  if (lint && end + 1 < text.size())
    findings.add("text-after-nul", {findings.files.size() - 1, end, end},
                 "Reading stops at a NUL, and there is text after it.");
}

class ReportedLoad {
 public:
  ReportedLoad(Units::UnitsEngine& engine, const ReportOptions& options)
      : engine_(engine), options_(options), known_(engine) {}

  void readFolder(const std::string& folder) {
    Batch batch(findings_, known_);
    std::unique_ptr<char[]> chunk;
    const std::vector<FolderEntry> entries = walkFolder(folder);
    for (const FolderEntry& entry : entries) {
      addFile(entry.path);
      if (!mustStop()) take(entry, batch, chunk);
    }
    keep(batch);
  }

  void readTexts(const std::vector<NamedText>& texts) {
    Batch batch(findings_, known_);
    for (const NamedText& text : texts) {
      addFile(text.name);
      if (!mustStop()) readText(text.text, batch);
    }
    keep(batch);
  }

  SchemaReport finish() {
    const bool isLoaded =
        !mustStop() && (!findings_.hasErrors || options_.leaveOutWhatCannotBuild) && load();
    const bool isLinted = options_.lint && !mustStop() && lint(isLoaded);
    if (options_.lint) applyAllowances(isLinted, isLinted, findings_);
    if (mustStop()) keepFirstError();
    return ReportMaker::make(findings_);
  }

 private:
  bool mustStop() const { return findings_.hasErrors && !options_.keepGoing; }

  void addFile(const std::string& path) {
    findings_.files.push_back({});
    findings_.files.back().path = path;
  }

  void keep(Batch& batch) {
    if (mustStop()) return;
    batch.resolve();
    std::vector<FiledDefinition> kept = batch.takeKept();
    std::move(kept.begin(), kept.end(), std::back_inserter(kept_));
  }

  void readText(std::string_view text, Batch& batch) {
    setText(text, options_.lint, findings_);
    batch.read(findings_.files.size() - 1, options_.lint);
  }

  void take(const FolderEntry& entry, Batch& batch, std::unique_ptr<char[]>& chunk) {
    using Kind = FolderEntry::Kind;
    const Place place{findings_.files.size() - 1, 0, 0};
    FileFate& fate = findings_.files.back().fate;
    fate = FileFate::PassedOver;
    switch (entry.kind) {
      case Kind::SchemaFile:
        if (entry.isLink)
          lintFile("link", place, "The file is a link, and its target can disappear.");
        return read(entry, place, batch, chunk);
      case Kind::TopFile:
        return lintFile("top-folder", place, "Loaders do not read files directly in the folder.");
      case Kind::OtherName:
        return lintFile("file-name", place,
                        "Loaders read only files whose names end in \".json\", in lowercase, with "
                        "something before it.");
      case Kind::LinkedFolder:
        return lintFile("link", place, "Loaders do not follow links to folders.");
      case Kind::DeadLink:
        return lintFile("link", place, "The target of the link does not exist.");
      case Kind::NoStatus:
        fate = FileFate::Unreadable;
        findings_.add("no-status", place,
                      "The status of the entry cannot be read: " + entry.problem + ".");
        return;
      case Kind::Unlisted:
        break;
    }
    fate = FileFate::Unreadable;
    findings_.add("cannot-list", place, "The folder cannot be listed: " + entry.problem + ".");
  }

  void lintFile(std::string_view id, Place place, std::string sentence) {
    if (options_.lint) findings_.add(id, place, std::move(sentence));
  }

  void read(const FolderEntry& entry, Place place, Batch& batch, std::unique_ptr<char[]>& chunk) {
    ReportedFile& file = findings_.files[place.file];
    file.fate = FileFate::Unreadable;
    SchemaFileText read;
    try {
      read = readSchemaFile(entry.path, chunk);
    } catch (const std::logic_error& error) {
      const std::string sentence = error.what();
      findings_.add(sentence == "failed to open schema file" ? "cannot-open" : "cannot-read", place,
                    sentence);
      return;
    }
    file.text = std::move(read.text);
    const std::size_t end = file.text.size();
    if (!read.endsAtNul && end < read.fileSize && end <= longestSchemaText) {
      findings_.add("ends-early", {place.file, end, end}, "The file ended early.");
      return;
    }
    if (read.endsAtNul && end + 1 < read.fileSize)
      lintFile("text-after-nul", {place.file, end, end},
               "Reading stops at a NUL, and there is text after it.");
    batch.read(place.file, options_.lint);
  }

  /// Whether the engine has accepted what is kept.
  bool load() {
    try {
      build(kept_, findings_, engine_);
    } catch (const Units::ValidationException& error) {
      findings_.add("engine-refuses", {}, error.what(),
                    "Build the pending definitions first, and check whether the engine is your own "
                    "implementation.");
      return false;
    }
    for (const FiledDefinition& one : kept_) findings_.files[one.file].fate = FileFate::Loaded;
    return true;
  }

  /// Whether there is an engine to ask.
  bool lint(bool isLoaded) {
    const auto names = options_.variableNames ? *options_.variableNames : usualVariableNames();
    if (isLoaded) return lintLoad({engine_, kept_, names, true}, findings_), true;
    return lintInCopy(engine_, kept_, names, true, findings_);
  }

  void keepFirstError() {
    std::vector<FoundFault> first;
    for (FoundFault& fault : findings_.faults)
      if (first.empty() && fault.kind->severity == Severity::Error)
        first.push_back(std::move(fault));
    findings_.faults = std::move(first);
  }

  Units::UnitsEngine& engine_;
  const ReportOptions& options_;
  Findings findings_;
  KnownDefinitions known_;
  std::vector<FiledDefinition> kept_;
};

}  // namespace

SchemaReport loadFolders(const std::vector<std::string>& folders, Units::UnitsEngine& engine,
                         const ReportOptions& options) {
  for (const std::string& folder : folders) {
    try {
      if (!isFolder(folder)) throw std::logic_error("schema folder not found: " + folder);
    } catch (const std::filesystem::filesystem_error&) {
      // The walk reports it.
    }
  }
  ReportedLoad load(engine, options);
  for (const std::string& folder : folders) load.readFolder(folder);
  return load.finish();
}

SchemaReport loadTexts(const std::vector<NamedText>& texts, Units::UnitsEngine& engine,
                       const ReportOptions& options) {
  ReportedLoad load(engine, options);
  load.readTexts(texts);
  return load.finish();
}

SchemaReport loadBundle(std::string_view bundle, const std::string& shownName,
                        Units::UnitsEngine& engine, const ReportOptions& options) {
  std::vector<NamedText> texts;
  forEachBundledText(bundle, [&](std::string_view text) {
    texts.push_back({shownName + '#' + std::to_string(texts.size() + 1), std::string(text)});
  });
  return loadTexts(texts, engine, options);
}

SchemaReport checkText(std::string_view text, const std::string& shownName,
                       const Units::UnitsEngine& engine) {
  Findings findings;
  KnownDefinitions known(engine);
  findings.files.push_back({});
  findings.files.back().path = shownName;
  setText(text, true, findings);
  Batch batch(findings, known);
  batch.read(0, true);
  batch.resolve();
  const std::vector<FiledDefinition> kept = batch.takeKept();
  const bool isLinted =
      !kept.empty() && lintInCopy(engine, kept, usualVariableNames(), false, findings);
  applyAllowances(isLinted, false, findings);
  return ReportMaker::make(findings);
}

}  // namespace Schemas
