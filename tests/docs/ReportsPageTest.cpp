#include "reporting/Findings.h"
#include "tests/docs/Page.h"
#include "tests/support/FolderTree.h"

#include <TrelvonUnits/SchemaReport.h>

#include <map>
#include <set>

namespace {

using Rows = std::vector<std::vector<std::string>>;

Rows curedRows() {
  Rows rows = rowsOf("reports.md", {"id", "what is wrong", "in the file"});
  for (auto& row : rowsOf("reports.md", {"id", "what is wrong", "why it matters", "in the file"}))
    rows.push_back({row[0], row[1], row[3], row[4]});
  return rows;
}

Schemas::SchemaReport reportOn(const std::string& folder) {
  const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  return Schemas::loadFolders({folder}, *engine, {});
}

std::multiset<std::string> findingsIn(const std::string& folder) {
  std::multiset<std::string> found;
  for (const Schemas::Finding& finding : reportOn(folder).getFindings())
    found.insert(finding.getId() + " in " + finding.getFile().substr(folder.size()));
  return found;
}

TEST(ReportsPage, HasARowForEachKindOfFinding) {
  Rows rows = curedRows();
  for (auto& row : rowsOf("reports.md", {"id", "what is wrong", "why it matters", "cure"}))
    rows.push_back(row);
  std::map<std::string, std::string> expected, listed;
  for (const auto& kind : Schemas::findingKinds()) expected.emplace(kind.id, kind.what);
  for (const auto& row : rows) listed.emplace(row[0], row[1]);
  for (const auto& [id, what] : expected) EXPECT_EQ(listed[id], what) << id;
  EXPECT_EQ(listed.size(), expected.size());
}

TEST(ReportsPage, CuresRemoveTheirFindingAndNoOther) {
  namespace fs = std::filesystem;
  const FolderTree tree;
  fs::copy(TRELVON_TESTS_SOURCE_DIR "/tests/data/faults", tree.path(), fs::copy_options::recursive);
  const std::multiset<std::string> all = findingsIn(tree.path());
  for (const auto& row : curedRows()) {
    const std::string file = "faults/" + row[0] + ".json";
    const std::string text = readFile("tests/data/faults/" + file);
    const std::size_t fault = text.find(row[2]);
    ASSERT_NE(fault, std::string::npos) << row[0];
    tree.write(file, std::string(text).replace(fault, row[2].size(), row[3]));
    std::multiset<std::string> expected = all;
    const std::string place = row[0] == "circle" ? "faults/circle-back.json" : file;
    EXPECT_EQ(expected.erase(row[0] + " in " + place), 1u) << row[0];
    EXPECT_TRUE(findingsIn(tree.path()) == expected) << row[0];
    tree.write(file, text);
  }
}

TEST(ReportsPage, ItsExampleSilencesWhatItSays) {
  const std::unique_ptr<Units::UnitsEngine> engine(Units::CreateUnitsEngine());
  for (const std::string& example : examplesOf("reports.md"))
    EXPECT_EQ(Schemas::checkText(example, "t", *engine).getFindings().size(), 0u);
}

/// What differs is written to the folder for temporary files, to be looked at and kept.
TEST(ReportsPage, TheReportOnFaultsIsKeptInAllFormats) {
  std::filesystem::current_path(TRELVON_TESTS_SOURCE_DIR "/tests/data");
  const Schemas::SchemaReport report = reportOn("faults");
  const std::pair<const char*, std::string> outputs[] = {
      {"faults.txt", report.toText()},
      {"faults.report.json", report.toJson() + '\n'},
      {"faults.sarif", report.toSarif() + '\n'}};
  for (const auto& [name, output] : outputs) {
    const std::string kept = std::string("tests/data/") + name;
    if (readFile(kept) == output) continue;
    const auto written = std::filesystem::temp_directory_path() / name;
    std::ofstream(written, std::ios::binary) << output;
    ADD_FAILURE() << kept << " differs from " << written;
  }
  const std::string page = readFile("docs/reports.md");
  const std::string text = report.toText();
  const std::size_t last = text.rfind('\n', text.size() - 2) + 1;
  EXPECT_NE(page.find(text.substr(last)), std::string::npos) << text.substr(last);
}

}  // namespace
