#pragma once

#include <TrelvonUnits/SchemaReport.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace Schemas {

/// A kind of finding. docs/reports.md has a row for each.
struct FindingKind {
  std::string_view id;
  Severity severity;
  std::string_view message;  // of errors that a schema's reader finds: the beginning of the message
  std::string_view advice;   // how to fix it, if that is always the same
  std::string_view what;     // in a few words
};

constexpr std::size_t noFile = static_cast<std::size_t>(-1);

/// A range of bytes.
struct Extent {
  std::size_t begin;
  std::size_t end;
};

/// A range of bytes of a file's text.
struct Place {
  std::size_t file = noFile;
  std::size_t begin = 0;
  std::size_t end = 0;
};

inline Place placeIn(std::size_t file, const Extent& extent) {
  return {file, extent.begin, extent.end};
}

struct Relation {
  Place place;
  std::string sentence;
};

/// A finding before lines and columns are counted.
struct FoundFault {
  const FindingKind* kind;
  Place place;
  std::string sentence;
  std::string advice;
  std::vector<Relation> related;
};

/// A text as the sentences of findings show it.
inline std::string quoted(std::string_view text) { return '"' + std::string(text) + '"'; }

/// A lint that a file silences.
struct Allowance {
  std::string id;
  std::size_t begin;
  std::size_t end;
  bool isUsed = false;
};

/// A file or text that the report covers.
struct ReportedFile {
  std::string path;
  FileFate fate = FileFate::NotReached;
  std::string text;
  std::string typeId;
  std::string reason;
  std::vector<Allowance> allowances;
};

/// What was found so far.
struct Findings {
  std::vector<ReportedFile> files;
  std::vector<FoundFault> faults;
  bool hasErrors = false;

  /// @param advice  if empty, that of the kind.
  FoundFault& add(std::string_view id, Place place, std::string sentence, std::string advice = {});
};

/// All kinds, errors first.
struct FindingKinds {
  const FindingKind* first;
  const FindingKind* last;
  const FindingKind* begin() const { return first; }
  const FindingKind* end() const { return last; }
};
FindingKinds findingKinds();

/// @throws std::out_of_range  there is no such kind.
const FindingKind& kindOfId(std::string_view id);

/// The kind of error that a schema's reader reports with a message.
const FindingKind& kindOfMessage(std::string_view message);

}  // namespace Schemas
