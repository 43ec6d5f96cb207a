#include "reporting/ReportContents.h"
#include "reporting/TextPlace.h"

#include <algorithm>
#include <map>
#include <memory>
#include <tuple>
#include <utility>

namespace Schemas {

RelatedPlace::RelatedPlace(const Contents* contents) noexcept : contents_(contents) {}
RelatedPlace::RelatedPlace(const RelatedPlace& other) noexcept = default;
RelatedPlace::~RelatedPlace() = default;
std::string RelatedPlace::getFile() const { return contents_->range.file; }
TextPosition RelatedPlace::getBegin() const { return contents_->range.begin; }
TextPosition RelatedPlace::getEnd() const { return contents_->range.end; }
std::string RelatedPlace::getSentence() const { return contents_->sentence; }

Finding::Finding(const Contents* contents) noexcept : contents_(contents) {}
Finding::Finding(const Finding& other) noexcept = default;
Finding::~Finding() = default;
Severity Finding::getSeverity() const { return contents_->kind->severity; }
std::string Finding::getId() const { return std::string(contents_->kind->id); }
std::string Finding::getFile() const { return contents_->range.file; }
TextPosition Finding::getBegin() const { return contents_->range.begin; }
TextPosition Finding::getEnd() const { return contents_->range.end; }
std::string Finding::getSentence() const { return contents_->sentence; }
std::string Finding::getAdvice() const { return contents_->advice; }
std::vector<RelatedPlace> Finding::getRelatedPlaces() const { return contents_->related; }

FileReport::FileReport(const Contents* contents) noexcept : contents_(contents) {}
FileReport::FileReport(const FileReport& other) noexcept = default;
FileReport::~FileReport() = default;
std::string FileReport::getPath() const { return contents_->path; }
FileFate FileReport::getFate() const { return contents_->fate; }
std::string FileReport::getTypeId() const { return contents_->typeId; }
std::string FileReport::getReason() const { return contents_->reason; }

SchemaReport::SchemaReport(const Contents* contents) noexcept : contents_(contents) {}
SchemaReport::SchemaReport(const SchemaReport& other) noexcept = default;
SchemaReport::~SchemaReport() = default;
std::vector<Finding> SchemaReport::getFindings() const { return contents_->findings; }
std::vector<FileReport> SchemaReport::getFiles() const { return contents_->files; }

namespace {

std::size_t count(const std::vector<Finding>& findings, Severity severity) {
  return static_cast<std::size_t>(
      std::count_if(findings.begin(), findings.end(),
                    [&](const Finding& finding) { return finding.getSeverity() == severity; }));
}

}  // namespace

std::size_t SchemaReport::getErrorCount() const {
  return count(contents_->findings, Severity::Error);
}
std::size_t SchemaReport::getWarningCount() const {
  return count(contents_->findings, Severity::Warning);
}
std::size_t SchemaReport::getFileCount(FileFate fate) const {
  return static_cast<std::size_t>(
      std::count_if(contents_->files.begin(), contents_->files.end(),
                    [&](const FileReport& file) { return file.getFate() == fate; }));
}
std::string SchemaReport::toText() const { return writeText(*this); }
std::string SchemaReport::toJson() const { return writeJson(*this); }
std::string SchemaReport::toSarif() const { return writeSarif(*this); }

const char* wordOf(Severity severity) { return severity == Severity::Error ? "error" : "warning"; }

const char* wordOf(FileFate fate) {
  static const char* const words[] = {"loaded",     "sound",       "left out",   "refused",
                                      "unreadable", "passed over", "not reached"};
  return words[static_cast<std::size_t>(fate)];
}

namespace {

/// The lines and columns of all places of some findings, each file's found in one pass.
class Positions {
 public:
  explicit Positions(const Findings& findings) : findings_(findings) {
    std::map<std::size_t, std::vector<std::size_t>> offsets;
    const auto ask = [&](const Place& place) {
      if (place.file == noFile) return;
      offsets[place.file].push_back(place.begin);
      offsets[place.file].push_back(place.end);
    };
    for (const FoundFault& fault : findings.faults) {
      ask(fault.place);
      for (const Relation& relation : fault.related) ask(relation.place);
    }
    for (auto& [file, asked] : offsets)
      found_.emplace(file, TextPositions(findings.files[file].text, std::move(asked)));
  }

  FileRange rangeOf(const Place& place) const {
    if (place.file == noFile) return {};
    const TextPositions& positions = found_.at(place.file);
    return {findings_.files[place.file].path, positions.at(place.begin), positions.at(place.end)};
  }

 private:
  const Findings& findings_;
  std::map<std::size_t, TextPositions> found_;
};

/// In the order of files, then of places; what is in no file comes last.
std::vector<const FoundFault*> inOrder(const std::vector<FoundFault>& faults) {
  std::vector<const FoundFault*> sorted;
  for (const FoundFault& fault : faults) sorted.push_back(&fault);
  std::sort(sorted.begin(), sorted.end(), [](const auto* a, const auto* b) {
    return std::tuple(a->place.file, a->place.begin, a) <
           std::tuple(b->place.file, b->place.begin, b);  // they lie in one array
  });
  return sorted;
}

}  // namespace

SchemaReport ReportMaker::make(const Findings& findings) {
  const Positions positions(findings);
  auto contents = std::make_unique<SchemaReport::Contents>();
  for (const FoundFault* const fault : inOrder(findings.faults)) {
    auto made = std::make_unique<Finding::Contents>();
    made->kind = fault->kind;
    made->range = positions.rangeOf(fault->place);
    made->sentence = fault->sentence;
    made->advice = fault->advice;
    made->related.reserve(fault->related.size());
    for (const Relation& relation : fault->related)
      made->related.push_back(RelatedPlace(
          new RelatedPlace::Contents(positions.rangeOf(relation.place), relation.sentence)));
    contents->findings.push_back(Finding(made.release()));
  }
  for (const ReportedFile& file : findings.files) {
    auto made = std::make_unique<FileReport::Contents>();
    made->path = file.path;
    made->fate = file.fate;
    made->typeId = file.typeId;
    made->reason = file.reason;
    contents->files.push_back(FileReport(made.release()));
  }
  return SchemaReport(contents.release());
}

}  // namespace Schemas
