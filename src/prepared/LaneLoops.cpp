#include "prepared/LaneLoops.h"

namespace Units {

#if defined(TRELVON_HAS_X86_LANES)
extern const LaneLoops avx512Loops, avx2Loops;
const LaneLoops* const allLaneLoops[] = {&avx512Loops, &avx2Loops, nullptr};
#elif defined(TRELVON_HAS_NEON_LANES)
extern const LaneLoops neonLoops;
const LaneLoops* const allLaneLoops[] = {&neonLoops, nullptr};
#else
const LaneLoops* const allLaneLoops[] = {nullptr};
#endif

const LaneLoops* usableLaneLoops() {
  const LaneLoops* const* loops = allLaneLoops;
  while (*loops && !(*loops)->isUsable()) ++loops;
  return *loops;
}

}  // namespace Units
