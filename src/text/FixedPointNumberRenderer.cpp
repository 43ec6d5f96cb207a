#include "text/FixedPointNumberRenderer.h"

#include "text/ClassicNumber.h"

#include <cstddef>

namespace Units {

void FixedPointNumberRenderer::render(std::string& out, double value, bool& negative) const {
  const std::size_t start = out.size();
  appendFixed(out, roundToStep(value, steps[precision_], negative), precision_);
  if (!trimTrailingZeros_ || out.find('.', start) == std::string::npos) return;
  out.erase(out.find_last_not_of('0') + 1);
  if (out.back() == '.') out.pop_back();
}

}  // namespace Units
