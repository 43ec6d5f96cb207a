#include "model/ShownText.h"
#include "reporting/JsonParts.h"
#include "reporting/ReportContents.h"

namespace Schemas {

namespace {

using Member = JsonMaker::Member;

class Writer {
 public:
  JSON finding(const Finding& one) {
    const auto& finding = ReportMaker::contentsOf(one);
    JSON made = json.object(Member("severity", json.text(wordOf(finding.kind->severity))),
                            Member("id", json.text(std::string(finding.kind->id))));
    addRange(finding.range, made);
    addText("sentence", finding.sentence, made);
    addText("advice", finding.advice, made);
    made.setMember(json.root, "related",
                   json.array(finding.related, [&](const auto& place) { return related(place); }));
    return made;
  }

  JSON file(const FileReport& one) {
    const auto& file = ReportMaker::contentsOf(one);
    JSON made = json.object(Member("path", json.text(Units::validText(file.path))),
                            Member("fate", json.text(wordOf(file.fate))));
    addText("typeid", file.typeId, made);
    addText("reason", file.reason, made);
    return made;
  }

  JsonMaker json;

 private:
  JSON related(const RelatedPlace& place) {
    const auto& contents = ReportMaker::contentsOf(place);
    JSON made = JSON::makeObject();
    addRange(contents.range, made);
    addText("sentence", contents.sentence, made);
    return made;
  }

  JSON position(const TextPosition& position) {
    return json.object(Member("offset", json.number(position.offset)),
                       Member("line", json.number(position.line)),
                       Member("column", json.number(position.column)),
                       Member("columnPoint", json.number(position.columnPoint)));
  }

  void addRange(const FileRange& range, JSON& out) {
    if (range.file.empty()) return;
    addText("file", range.file, out);
    out.setMember(json.root, "begin", position(range.begin));
    out.setMember(json.root, "end", position(range.end));
  }

  void addText(const char* name, const std::string& text, JSON& out) {
    if (!text.empty()) out.setMember(json.root, name, json.text(Units::validText(text)));
  }
};

}  // namespace

std::string writeJson(const SchemaReport& report) {
  const auto& contents = ReportMaker::contentsOf(report);
  Writer writer;
  JSON& root = writer.json.root;
  root.setMember(root, "version", JSON(1));
  root.setMember(root, "errors", JsonMaker::number(report.getErrorCount()));
  root.setMember(root, "warnings", JsonMaker::number(report.getWarningCount()));
  root.setMember(root, "findings", writer.json.array(contents.findings, [&](const auto& finding) {
    return writer.finding(finding);
  }));
  root.setMember(root, "files", writer.json.array(contents.files, [&](const auto& file) {
    return writer.file(file);
  }));
  return root.toString();
}

}  // namespace Schemas
