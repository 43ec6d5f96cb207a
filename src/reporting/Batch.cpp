#include "reporting/Batch.h"

#include "model/EditDistance.h"
#include "reporting/BuildMessages.h"
#include "reporting/ReferencePlaces.h"
#include "reporting/TextLints.h"

#include <algorithm>
#include <memory>
#include <set>
#include <utility>

namespace Schemas {

namespace {

// When suggesting similar names: this many take some seconds.
constexpr std::size_t mostComparisons = 3000000;  // tuning

const char* wordOf(RecordKind kind) {
  static const char* const words[] = {"a dimension",      "a factor", "a unit",
                                      "an absolute unit", "a symbol", "a quantity"};
  return words[static_cast<std::size_t>(kind)];
}

const char* neededBy(const Reference& reference) {
  const std::string_view constant = reference.constant;
  if (constant == "dimension") return "a dimension";
  return constant == "parentFactors" ? "a factor" : "a unit";
}

/// Common mistakes that people make in JSON.
std::string adviceOnJson(std::string_view text, const TextPlaces::Fault& fault) {
  if (text.substr(0, 3) == "\xEF\xBB\xBF") return "Save it without a byte order mark.";
  if (text.substr(0, 2) == "\xFF\xFE" || text.substr(0, 2) == "\xFE\xFF")
    return "Save it as UTF-8.";
  if (fault.offset == 0 || fault.offset > text.size()) return {};
  const std::size_t before = text.find_last_not_of(" \t\r\n", fault.offset - 1);
  const bool isAtBracket =
      fault.offset < text.size() && (text[fault.offset] == '}' || text[fault.offset] == ']');
  if (isAtBracket && before != text.npos && text[before] == ',')
    return "Remove the comma before it.";
  if (text.substr(fault.offset, 1) == "/") return "Remove the comment: JSON has no comments.";
  if (text.substr(fault.offset, 1) == "'") return "Write strings in double quotes.";
  return {};
}

}  // namespace

void Batch::read(std::size_t file, bool lint) {
  const std::string& text = findings_.files[file].text;
  const auto isTaken = [this](const std::string& typeId) {
    return numbers_.count(typeId) != 0 || known_.isTaken(typeId);
  };
  Units::ReadingTrace trace;
  ReadResult result = readDefinition(text, isTaken, lint ? &trace : nullptr);
  if (!result.definition) {
    if (!lint) readDefinition(text, isTaken, &trace);
    return refuse(file, result, trace);
  }
  findings_.files[file].fate = FileFate::Sound;
  findings_.files[file].typeId = result.typeId;
  if (lint) lintText(file, *result.definition, trace, findings_);
  numbers_.emplace(result.typeId, definitions_.size());
  definitions_.push_back({*std::move(result.definition), file});
}

void Batch::refuse(std::size_t file, const ReadResult& result, const Units::ReadingTrace& trace) {
  ReportedFile& refused = findings_.files[file];
  refused.fate = FileFate::Refused;
  refused.typeId = result.typeId;
  const TextPlaces places(refused.text);
  if (const auto& fault = places.fault()) {
    findings_.add("json", placeIn(file, pointAt(refused.text, fault->offset)), result.refusal,
                  adviceOnJson(refused.text, *fault));
    return;
  }
  const Place place = placeIn(file, extentAt(places, trace.last()));
  if (result.isTaken)
    refuseTaken(file, result, place);
  else
    findings_.add(kindOfMessage(result.refusal).id, place, result.refusal);
}

/// Kept, since many findings may relate to one file.
const Place& Batch::placeOfTypeId(std::size_t file) {
  const auto [entry, isNew] = typeIdPlaces_.try_emplace(file);
  if (isNew) entry->second = placeIn(file, extentOfTypeId(findings_.files[file].text));
  return entry->second;
}

void Batch::refuseTaken(std::size_t file, const ReadResult& result, Place place) {
  FoundFault& fault = findings_.add("typeid-taken", place,
                                    messageOfTaken(findings_.files[file].text, result.typeId));
  const auto number = numbers_.find(result.typeId);
  const KnownDefinitions::Known* const known =
      number == numbers_.end() ? known_.find(result.typeId) : nullptr;
  const std::size_t first = number != numbers_.end() ? definitions_[number->second].file
                            : known                  ? known->file
                                                     : noFile;
  if (first == noFile)
    fault.advice = "The engine already has it. " + fault.advice;
  else
    fault.related.push_back({placeOfTypeId(first), "It is first used here."});
}

std::optional<Batch::BadReference> Batch::follow(std::size_t user, const Reference& reference,
                                                 DefinitionGraph& graph) {
  const RecordKind kind = definitions_[user].definition.kind;
  const auto own = numbers_.find(reference.typeId);
  if (own != numbers_.end()) {
    const FiledDefinition& referred = definitions_[own->second];
    if (!accepts(kind, reference, referred.definition.kind))
      return BadReference{user, &reference, referred.definition.kind, referred.file};
    graph.needs[user].push_back(own->second);
    return std::nullopt;
  }
  const KnownDefinitions::Known* const known = known_.find(reference.typeId);
  if (!known) return BadReference{user, &reference, std::nullopt, noFile};
  if (known->kind && !accepts(kind, reference, *known->kind))
    return BadReference{user, &reference, known->kind, known->file};
  return std::nullopt;
}

void Batch::resolve() {
  DefinitionGraph graph{std::vector<std::vector<std::size_t>>(definitions_.size()),
                        std::vector<bool>(definitions_.size())};
  std::vector<BadReference> allBad;
  for (std::size_t user = 0; user < definitions_.size(); ++user)
    for (const Reference& reference : definitions_[user].definition.references)
      if (const auto bad = follow(user, reference, graph)) {
        graph.isFaulty[user] = true;
        allBad.push_back(*bad);
      }
  reportReferences(allBad);
  for (const auto& circle : findCircles(graph)) reportCircle(circle);

  const std::vector<LeaveOut> result = findWhatToLeaveOut(graph);
  isLeftOut_.resize(definitions_.size());
  for (std::size_t number = 0; number < result.size(); ++number)
    if (result[number].reason != LeaveOut::Reason::Kept) leaveOut(number, result[number]);
}

void Batch::reportReferences(const std::vector<BadReference>& allBad) {
  std::unique_ptr<ReferencePlaces> places;
  std::set<std::pair<std::string_view, std::string_view>> reported;  // of one definition
  for (std::size_t next = 0; next < allBad.size(); ++next) {
    const BadReference& bad = allBad[next];
    const auto& [definition, file] = definitions_[bad.user];
    if (next == 0 || bad.user != allBad[next - 1].user) {
      places = std::make_unique<ReferencePlaces>(findings_.files[file].text);
      reported.clear();
    }
    if (!reported.insert({bad.reference->constant, bad.reference->typeId}).second) continue;
    const bool isScale = bad.referred == RecordKind::AbsoluteUnit &&
                         accepts(definition.kind, *bad.reference, RecordKind::RelativeUnit);
    FoundFault& fault = findings_.add(!bad.referred ? "missing-reference"
                                      : isScale     ? "scale-as-parent"
                                                    : "wrong-kind",
                                      placeIn(file, places->at(*bad.reference)),
                                      messageOfReference(definition, *bad.reference, bad.referred));
    if (!isScale) fault.advice = adviceOn(bad);
    if (bad.referredFile != noFile)
      fault.related.push_back(
          {placeOfTypeId(bad.referredFile), std::string("This is ") + wordOf(*bad.referred) + "."});
  }
}

std::string Batch::adviceOn(const BadReference& bad) {
  const RecordKind kind = definitions_[bad.user].definition.kind;
  if (bad.referred)
    return std::string("Name ") + neededBy(*bad.reference) + "; this is " + wordOf(*bad.referred) +
           ".";
  std::set<std::string> candidates;
  if (comparisons_ < mostComparisons) {  // tuning
    known_.collect(kind, *bad.reference, candidates);
    for (const auto& [typeId, number] : numbers_)
      if (accepts(kind, *bad.reference, definitions_[number].definition.kind))
        candidates.insert(typeId);
  }
  comparisons_ += candidates.size();  // tuning
  std::string advice;
  for (const std::string& near : Units::nearestTexts(bad.reference->typeId, candidates, 3))
    advice += (advice.empty() ? "Did you mean " : ", ") + near;
  return advice.empty() ? std::string("Add ") + neededBy(*bad.reference) + " with that type id."
                        : advice + "?";
}

/// Where a definition on a circle names the next one.
Place Batch::placeOfNext(const std::vector<std::size_t>& circle, std::size_t place) const {
  const auto& [definition, file] = definitions_[circle[place]];
  const std::string& next = definitions_[circle[(place + 1) % circle.size()]].definition.typeId;
  ReferencePlaces places(findings_.files[file].text);
  const auto named =
      std::find_if(definition.references.begin(), definition.references.end(),
                   [&](const Reference& reference) { return reference.typeId == next; });
  return placeIn(file, places.at(*named));
}

void Batch::reportCircle(const std::vector<std::size_t>& circle) {
  std::vector<const Definition*> members;
  for (const std::size_t number : circle) members.push_back(&definitions_[number].definition);
  FoundFault& fault = findings_.add("circle", placeOfNext(circle, 0), messageOfCircle(members));
  for (std::size_t place = 0; place < circle.size(); ++place)
    fault.related.push_back(
        {placeOfNext(circle, place),
         members[place]->typeId + " needs " + members[(place + 1) % circle.size()]->typeId + "."});
}

void Batch::leaveOut(std::size_t number, const LeaveOut& why) {
  isLeftOut_[number] = true;
  ReportedFile& file = findings_.files[definitions_[number].file];
  file.fate = FileFate::LeftOut;
  switch (why.reason) {
    case LeaveOut::Reason::InCircle:
      file.reason = "is part of a circle of definitions";
      break;
    case LeaveOut::Reason::NeedsLeftOut:
      file.reason = "needs " + definitions_[why.needed].definition.typeId + ", which is left out";
      break;
    default:
      file.reason = "refers to a definition that is missing or of the wrong kind";
  }
}

std::vector<FiledDefinition> Batch::takeKept() {
  std::vector<FiledDefinition> kept;
  for (std::size_t number = 0; number < definitions_.size(); ++number) {
    if (isLeftOut_[number]) continue;
    FiledDefinition& one = definitions_[number];
    known_.add(one.definition.typeId, one.definition.kind, one.file);
    kept.push_back(std::move(one));
  }
  return kept;
}

}  // namespace Schemas
