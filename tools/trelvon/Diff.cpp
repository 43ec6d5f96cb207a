#include "tools/trelvon/Context.h"
#include "tools/trelvon/Files.h"
#include "tools/trelvon/Json.h"
#include "tools/trelvon/Run.h"
#include "tools/trelvon/ShownText.h"

#include <filesystem>
#include <map>
#include <set>
#include <vector>

namespace tool {

namespace {

using Notes = std::map<std::string, SchemaNotes>;

/// A part of a definition that differs. Texts are JSON, and empty where the part is missing.
struct Change {
  std::string part, before, after;
};

/// The definitions of a folder or bundle by type id, the first of each.
Notes readNotes(const Context& context, const std::string& path) {
  Notes notes;
  const auto add = [&](const std::string& file, std::string_view text) {
    const auto read = readSchemaNotes(text.substr(0, text.find('\0')));
    if (read)
      notes.emplace(read->typeId, *read);
    else
      context.warn(shown(file) + " has a text that is not a definition");
  };
  std::error_code unknown;
  if (std::filesystem::is_directory(path, unknown)) {
    for (const std::string& file : schemaFiles(path)) add(file, readFile(file));
  } else {
    const std::string bundle = readFile(path);
    forEachBundled(path, bundle, [&](std::string_view text) { add(path, text); });
  }
  return notes;
}

std::vector<Change> changesOf(const SchemaNotes& before, const SchemaNotes& after) {
  std::vector<Change> changes;
  const auto compare = [&](const std::string& part, const std::string& old,
                           const std::string& fresh) {
    if (old != fresh) changes.push_back({part, old, fresh});
  };
  compare("inherits", before.bases, after.bases);
  std::set<std::string> parts;
  for (const auto* const constants : {&before.constants, &after.constants})
    for (const auto& [part, value] : *constants) parts.insert(part);
  const auto valueOf = [](const SchemaNotes& notes, const std::string& part) {
    const auto found = notes.constants.find(part);
    return found == notes.constants.end() ? std::string() : found->second;
  };
  for (const std::string& part : parts) compare(part, valueOf(before, part), valueOf(after, part));
  compare("exact", before.exact.value_or(""), after.exact.value_or(""));
  compare("source", before.source, after.source);
  return changes;
}

struct Difference {
  std::vector<std::string> added, gone;
  std::vector<std::pair<std::string, std::vector<Change>>> changed;

  bool isEmpty() const { return added.empty() && gone.empty() && changed.empty(); }
};

Difference differenceOf(const Notes& before, const Notes& after) {
  Difference difference;
  for (const auto& [typeId, notes] : before) {
    const auto found = after.find(typeId);
    if (found == after.end()) {
      difference.gone.push_back(typeId);
    } else if (const auto changes = changesOf(notes, found->second); !changes.empty()) {
      difference.changed.emplace_back(typeId, changes);
    }
  }
  for (const auto& [typeId, notes] : after)
    if (before.count(typeId) == 0) difference.added.push_back(typeId);
  return difference;
}

void writeText(Output& out, const Difference& difference) {
  for (const std::string& typeId : difference.added)
    out.write(out.tinted("added    ", Tint::Advice) + shown(typeId) + '\n');
  for (const std::string& typeId : difference.gone)
    out.write(out.tinted("gone     ", Tint::Error) + shown(typeId) + '\n');
  const auto orNone = [](const std::string& text) { return text.empty() ? "none" : shown(text); };
  for (const auto& [typeId, changes] : difference.changed) {
    out.write(out.tinted("changed  ", Tint::Warning) + shown(typeId) + '\n');
    for (const Change& change : changes)
      out.write("  " + shown(change.part) + ": " + orNone(change.before) + " -> " +
                orNone(change.after) + '\n');
  }
}

void writeJson(Output& out, const Difference& difference) {
  JsonWriter json;
  json.beginObject();
  json.member("added", difference.added);
  json.member("gone", difference.gone);
  json.key("changed");
  json.beginArray();
  for (const auto& [typeId, changes] : difference.changed) {
    json.beginObject();
    json.member("typeId", typeId);
    json.key("parts");
    json.beginArray();
    for (const Change& change : changes) {
      json.beginObject();
      json.member("part", change.part);
      json.member("old", change.before);
      json.member("new", change.after);
      json.endObject();
    }
    json.endArray();
    json.endObject();
  }
  json.endArray();
  json.endObject();
  out.write(json.text() + '\n');
}

}  // namespace

Status runDiff(Context& context) {
  const Difference difference = differenceOf(readNotes(context, context.arguments.operands[0]),
                                             readNotes(context, context.arguments.operands[1]));
  if (context.wantsJson())
    writeJson(context.out, difference);
  else
    writeText(context.out, difference);
  return difference.isEmpty() ? Status::Done : Status::Findings;
}

}  // namespace tool
