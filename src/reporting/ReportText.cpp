#include "model/ShownText.h"
#include "reporting/ReportContents.h"

namespace Schemas {

namespace {

void addPlace(const FileRange& range, std::string& out) {
  if (range.file.empty()) {
    out += "-: ";
    return;
  }
  out += Units::shownText(range.file) + ':' + std::to_string(range.begin.line) + ':' +
         std::to_string(range.begin.columnPoint) + ": ";
}

std::string counted(std::size_t count, const char* what) {
  return std::to_string(count) + ' ' + what + (count == 1 ? "" : "s");
}

}  // namespace

std::string writeText(const SchemaReport& report) {
  const auto& contents = ReportMaker::contentsOf(report);
  std::string out;
  for (const Finding& one : contents.findings) {
    const auto& finding = ReportMaker::contentsOf(one);
    addPlace(finding.range, out);
    out += std::string(wordOf(finding.kind->severity)) + ": " + Units::shownText(finding.sentence) +
           " [" + std::string(finding.kind->id) + "]\n";
    if (!finding.advice.empty()) out += "  " + Units::shownText(finding.advice) + '\n';
    for (const RelatedPlace& place : finding.related) {
      addPlace(ReportMaker::contentsOf(place).range, out);
      out += "note: " + Units::shownText(ReportMaker::contentsOf(place).sentence) + '\n';
    }
  }
  for (const FileReport& one : contents.files) {
    const auto& file = ReportMaker::contentsOf(one);
    if (file.fate == FileFate::LeftOut)
      out += Units::shownText(file.path) + ": left out: " + Units::shownText(file.reason) + '\n';
  }
  out += counted(report.getErrorCount(), "error") + ", " +
         counted(report.getWarningCount(), "warning") + "; " +
         counted(contents.files.size(), "file");
  for (int fate = 0; fate <= static_cast<int>(FileFate::NotReached); ++fate)
    if (const std::size_t count = report.getFileCount(FileFate(fate)))
      out += ", " + std::to_string(count) + ' ' + wordOf(FileFate(fate));
  return out + '\n';
}

}  // namespace Schemas
