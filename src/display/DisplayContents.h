#pragma once

#include "display/NumberForm.h"
#include "model/RecordContents.h"

#include <TrelvonUnits/PreparedConversion.h>
#include <TrelvonUnits/ValueDisplay.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace Units {

/// A unit in which values are shown.
struct DisplayScale {
  struct Conversions {
    PreparedConversion to;    // from the display's unit to this one
    PreparedConversion from;  // and back
  };

  std::string symbol = {};  // type id
  std::string text = {};
  bool isPrefix = false;
  bool hasSpace = false;
  std::optional<Conversions> conversions = std::nullopt;  // none if it is the display's unit

  double amount(double value) const { return conversions ? conversions->to(value) : value; }
  double value(double amount) const { return conversions ? conversions->from(amount) : amount; }
};

struct DisplayContents : CountedContents {
  DisplayOptions options;
  std::string unit;
  NumberForm form;
  NumberStyle style;
  std::vector<DisplayScale> scales;  // at least one; several are sorted, the smallest first
  std::size_t home = 0;              // the scale that shows 0

  /// The scale for a value.
  const DisplayScale& scaleOf(double value) const;
};

struct DisplayReadingContents : CountedContents {
  bool isRead = false;
  double value = 0.0;
  std::string text;
  std::vector<DisplayPiece> pieces;
  FormulaSpan span;
  std::string sentence;
  std::vector<double> readings;
};

}  // namespace Units
