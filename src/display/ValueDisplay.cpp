#include "display/DisplayContents.h"
#include "display/DisplayMaker.h"
#include "display/DisplayReader.h"
#include "display/Locales.h"
#include "display/ShowValue.h"

#include <cmath>
#include <memory>

namespace Units {

namespace {

/// Conversions round, so a number that is almost a thousand because of them counts as a thousand.
constexpr double nearlyOne = 1.0 - 1e-12;

}  // namespace

const DisplayScale& DisplayContents::scaleOf(double value) const {
  if (scales.size() == 1) return scales.front();
  if (value == 0.0 || !std::isfinite(value)) return scales[home];
  const double least = options.leastBest * nearlyOne;
  std::size_t best = scales.size() - 1;
  while (best > 0 && std::fabs(scales[best].amount(value)) < least) --best;
  if (best + 1 == scales.size()) return scales[best];
  // After rounding, it may be a thousand of this unit, and so one of the next.
  const double shown = shownAmount(std::fabs(scales[best].amount(value)), form);
  const double next = scales[best + 1].amount(scales[best].value(shown));
  return scales[std::fabs(next) >= least ? best + 1 : best];
}

ValueDisplay::ValueDisplay(const DisplayContents* contents) noexcept : contents_(contents) {}

ValueDisplay::ValueDisplay(const UnitsEngine& engine, const DisplayOptions& options)
    : contents_(makeDisplay(engine, options).release()) {}

// Contents are shared, so a move is a copy.
ValueDisplay::ValueDisplay(const ValueDisplay& other) noexcept = default;
ValueDisplay::ValueDisplay(ValueDisplay&& other) noexcept : contents_(other.contents_) {}
ValueDisplay::~ValueDisplay() = default;

DisplayOptions ValueDisplay::options() const { return contents_->options; }

std::string ValueDisplay::unitTypeId() const { return contents_->unit; }

std::string ValueDisplay::show(double value) const {
  const DisplayScale& scale = contents_->scaleOf(value);
  return showAmount(scale.amount(value), scale, contents_->form, contents_->style);
}

DisplayReading ValueDisplay::read(std::string_view text) const {
  return DisplayReading(readDisplayed(*contents_.get(), text).release());
}

std::vector<std::string> ValueDisplay::locales() { return displayLocaleNames(); }

}  // namespace Units
