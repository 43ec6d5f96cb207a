#include "loading/AddOrSkip.h"

#include <TrelvonUnits/Exceptions.h>

namespace Schemas {

void addOrSkip(const std::string& text, Units::UnitsEngine& engine) {
  try {
    engine.addDefinition(text);
  } catch (const Units::ValidationException&) {
    // Skipped.
  }
}

}  // namespace Schemas
