#include "model/Characters.h"
#include "model/ShownText.h"
#include "reporting/JsonParts.h"
#include "reporting/ReportContents.h"

#include <string_view>

namespace Schemas {

namespace {

using Member = JsonMaker::Member;

/// A path as a URI reference: all but the plainest bytes are escaped.
std::string uriOf(const std::string& path) {
  constexpr std::string_view plain = "-._~/";
  std::string uri = path.front() == '/' ? "file://" : "";
  for (const char c : path) {
    const auto byte = static_cast<unsigned char>(c);
    if (Units::isLetter(c) || Units::isDigit(c) || plain.find(c) != plain.npos)
      uri += c;
    else
      uri += {'%', "0123456789ABCDEF"[byte >> 4], "0123456789ABCDEF"[byte & 15]};
  }
  return uri;
}

class SarifWriter {
 public:
  JSON rule(const FindingKind& kind) {
    return json.object(Member("id", json.text(std::string(kind.id))),
                       Member("shortDescription", message(std::string(kind.what))),
                       Member("defaultConfiguration",
                              json.object(Member("level", json.text(wordOf(kind.severity))))));
  }

  JSON result(const Finding& one) {
    const auto& finding = ReportMaker::contentsOf(one);
    const auto ruleIndex = static_cast<std::size_t>(finding.kind - findingKinds().begin());
    const std::string advice = finding.advice.empty() ? "" : ' ' + finding.advice;
    const auto& related = finding.related;
    JSON made = json.object(
        Member("ruleId", json.text(std::string(finding.kind->id))),
        Member("ruleIndex", json.number(ruleIndex)),
        Member("level", json.text(wordOf(finding.kind->severity))),
        Member("message", message(finding.sentence + advice)),
        Member("locations", json.array(locationsOf(finding.range), [&](const FileRange* range) {
          return location(*range, nullptr);
        })));
    if (!related.empty())
      made.setMember(json.root, "relatedLocations", json.array(related, [&](const auto& place) {
        const auto& contents = ReportMaker::contentsOf(place);
        return location(contents.range, &contents.sentence);
      }));
    return made;
  }

  JsonMaker json;

 private:
  static std::vector<const FileRange*> locationsOf(const FileRange& range) {
    if (range.file.empty()) return {};
    return {&range};
  }

  JSON message(const std::string& text) {
    return json.object(Member("text", json.text(Units::validText(text))));
  }

  JSON location(const FileRange& range, const std::string* sentence) {
    JSON made = json.object(Member("physicalLocation", physicalLocation(range)));
    if (sentence) made.setMember(json.root, "message", message(*sentence));
    return made;
  }

  JSON physicalLocation(const FileRange& range) {
    return json.object(
        Member("artifactLocation", json.object(Member("uri", json.text(uriOf(range.file))))),
        Member("region", json.object(Member("startLine", json.number(range.begin.line)),
                                     Member("startColumn", json.number(range.begin.columnPoint)),
                                     Member("endLine", json.number(range.end.line)),
                                     Member("endColumn", json.number(range.end.columnPoint)),
                                     Member("byteOffset", json.number(range.begin.offset)),
                                     Member("byteLength",
                                            json.number(range.end.offset - range.begin.offset)))));
  }
};

}  // namespace

std::string writeSarif(const SchemaReport& report) {
  const auto& contents = ReportMaker::contentsOf(report);
  SarifWriter writer;
  JsonMaker& json = writer.json;
  JSON driver = json.object(Member("name", json.text("TrelvonUnits")),
                            Member("rules", json.array(findingKinds(), [&](const auto& kind) {
                              return writer.rule(kind);
                            })));
  JSON run = json.object(Member("tool", json.object(Member("driver", std::move(driver)))),
                         Member("columnKind", json.text("unicodeCodePoints")),
                         Member("results", json.array(contents.findings, [&](const auto& finding) {
                           return writer.result(finding);
                         })));
  std::vector<JSON> runs;
  runs.push_back(std::move(run));
  json.root.setMember(json.root, "$schema",
                      json.text("https://json.schemastore.org/sarif-2.1.0.json"));
  json.root.setMember(json.root, "version", json.text("2.1.0"));
  json.root.setMember(json.root, "runs", JSON::makeArray(json.root, std::move(runs)));
  return json.root.toString();
}

}  // namespace Schemas
