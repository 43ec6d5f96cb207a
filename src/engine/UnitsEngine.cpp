#include "engine/UnitsEngineImpl.h"

#include <TrelvonUnits/UnitsEngine.h>

namespace Units {

UnitsEngine::~UnitsEngine() = default;

UnitsEngine* CreateUnitsEngine() { return new UnitsEngineImpl(); }

}  // namespace Units
