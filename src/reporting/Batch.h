#pragma once

#include "reporting/DefinitionGraph.h"
#include "reporting/DefinitionReader.h"
#include "reporting/Findings.h"
#include "reporting/KnownDefinitions.h"

#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace Schemas {

/// A definition that was read from a file.
struct FiledDefinition {
  Definition definition;
  std::size_t file;
};

/// Definitions that are built together: those of one folder, or of one text.
class Batch {
 public:
  /// @param findings  gets all faults; holds the files.
  Batch(Findings& findings, KnownDefinitions& known) : findings_(findings), known_(known) {}

  /// Reads the text of a file and keeps its definition, or reports what is wrong with it.
  /// @param lint  whether to look for lints of the text.
  void read(std::size_t file, bool lint);

  /// Reports all references that cannot be resolved and all circles, and finds what to leave out.
  void resolve();

  /// The definitions that are not left out. Later batches may refer to them.
  std::vector<FiledDefinition> takeKept();

 private:
  struct BadReference {
    std::size_t user;
    const Reference* reference;
    std::optional<RecordKind> referred;  // empty if it is missing
    std::size_t referredFile;
  };

  void refuse(std::size_t file, const ReadResult& result, const Units::ReadingTrace& trace);
  const Place& placeOfTypeId(std::size_t file);
  void refuseTaken(std::size_t file, const ReadResult& result, Place place);
  std::optional<BadReference> follow(std::size_t user, const Reference& reference,
                                     DefinitionGraph& graph);
  void reportReferences(const std::vector<BadReference>& bad);
  std::string adviceOn(const BadReference& bad);
  void reportCircle(const std::vector<std::size_t>& circle);
  Place placeOfNext(const std::vector<std::size_t>& circle, std::size_t place) const;
  void leaveOut(std::size_t number, const LeaveOut& why);

  Findings& findings_;
  KnownDefinitions& known_;
  std::vector<FiledDefinition> definitions_;
  std::map<std::string, std::size_t> numbers_;  // by type id
  std::vector<bool> isLeftOut_;
  std::map<std::size_t, Place> typeIdPlaces_;  // as far as they were asked for
  std::size_t comparisons_ = 0;                // of near names
};

}  // namespace Schemas
