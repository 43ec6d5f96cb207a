#include <TrelvonUnits/UnitsEngine.h>

#include "engine/UnitsEngineImpl.h"

namespace Units {

UnitsEngine::~UnitsEngine() = default;

UnitsEngine* CreateUnitsEngine() { return new UnitsEngineImpl(); }

}  // namespace Units
