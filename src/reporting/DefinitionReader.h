#pragma once

#include "schema/ReadingTrace.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace Schemas {

/// The kinds of definitions, as references distinguish them. Relative and absolute units are
/// different kinds.
enum class RecordKind { Dimension, Factor, RelativeUnit, AbsoluteUnit, Symbol, Quantity };

/// What a definition says about another one.
struct Reference {
  enum class Form { Power, Single, Listed };  // in a map of parents, alone, in a list

  std::string typeId;
  const char* constant;  // that holds it
  Form form;
  std::size_t number;  // in a list
};

struct Definition {
  std::string typeId;
  RecordKind kind;
  std::vector<Reference> references;  // those of factors first, as the engine checks them
};

/// Whether a definition of one kind may refer to one of another kind by a constant.
bool accepts(RecordKind kind, const Reference& reference, RecordKind referred);

/// The result of reading a text: a definition, or a refusal.
struct ReadResult {
  std::optional<Definition> definition;
  std::string refusal;  // a message
  bool isTaken = false;
  std::string typeId;  // as soon as it was read
};

/// Reads a text with the engine's readers, in the engine's order of checks.
///
/// @param isTaken  whether a type id is taken. For such a text, `refusal` is empty: only the engine
///                 has the message.
/// @param trace    may be null.
ReadResult readDefinition(const std::string& text,
                          const std::function<bool(const std::string&)>& isTaken,
                          Units::ReadingTrace* trace);

}  // namespace Schemas
