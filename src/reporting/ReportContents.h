#pragma once

#include "model/RecordContents.h"
#include "reporting/Findings.h"

#include <TrelvonUnits/SchemaReport.h>

#include <string>
#include <vector>

/// What all copies of a report, and of its parts, share.
namespace Schemas {

/// A range in a file.
struct FileRange {
  std::string file;
  TextPosition begin;
  TextPosition end;
};

struct RelatedPlace::Contents : Units::CountedContents {
  Contents(FileRange place, std::string text)
      : range(std::move(place)), sentence(std::move(text)) {}

  const FileRange range;
  const std::string sentence;
};

struct Finding::Contents : Units::CountedContents {
  const FindingKind* kind;
  FileRange range;
  std::string sentence;
  std::string advice;
  std::vector<RelatedPlace> related;
};

struct FileReport::Contents : Units::CountedContents {
  std::string path;
  FileFate fate;
  std::string typeId;
  std::string reason;
};

struct SchemaReport::Contents : Units::CountedContents {
  std::vector<Finding> findings;
  std::vector<FileReport> files;
};

/// Makes reports, and gives access to their contents.
class ReportMaker {
 public:
  /// Sorts what was found and counts its lines and columns.
  static SchemaReport make(const Findings& findings);

  template <class Part>
  static const typename Part::Contents& contentsOf(const Part& part) {
    return *part.contents_.get();
  }
};

const char* wordOf(Severity severity);
const char* wordOf(FileFate fate);

std::string writeText(const SchemaReport& report);
std::string writeJson(const SchemaReport& report);
std::string writeSarif(const SchemaReport& report);

}  // namespace Schemas
