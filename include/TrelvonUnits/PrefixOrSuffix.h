#pragma once

#include <TrelvonUnits/Export.h>
#include <TrelvonUnits/Placement.h>
#include <TrelvonUnits/Shared.h>

#include <string>

namespace Units {

/// Text that is written before or after a number: `$ 5`, `12.50 kg`, `30%`.
class TRELVONUNITS_API PrefixOrSuffix {
 public:
  /// @param text       UTF-8; may be empty, and then nothing is written.
  /// @param placement  before or after the number.
  /// @param hasSpace   whether one space stands between text and number.
  PrefixOrSuffix(const std::string& text, Placement placement, bool hasSpace);

  PrefixOrSuffix(const PrefixOrSuffix& other) noexcept;
  PrefixOrSuffix(PrefixOrSuffix&& other) noexcept;  ///< Copies; `other` stays readable.
  ~PrefixOrSuffix();
  PrefixOrSuffix& operator=(const PrefixOrSuffix&) = delete;

  std::string getText() const;
  Placement getPlacement() const;
  bool hasSpace() const;

 private:
  friend struct RecordAccess;  // reads in place inside the library

  struct Contents;
  const Shared<Contents> contents_;
};

}  // namespace Units
