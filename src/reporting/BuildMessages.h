#pragma once

#include "reporting/DefinitionReader.h"

#include <optional>
#include <string>
#include <vector>

namespace Schemas {

/// The engine's messages about single faults. Each function makes an engine with just this fault,
/// and returns the message with which that engine refuses it.

/// Of a text whose type id is taken.
std::string messageOfTaken(const std::string& text, const std::string& typeId);

/// Of a reference to what is missing or of the wrong kind.
/// @param referred  empty if it is missing.
std::string messageOfReference(const Definition& definition, const Reference& reference,
                               std::optional<RecordKind> referred);

/// Of a circle of factors or of relative units.
std::string messageOfCircle(const std::vector<const Definition*>& circle);

}  // namespace Schemas
