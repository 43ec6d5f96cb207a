#pragma once

#include <TrelvonUnits/Export.h>
#include <TrelvonUnits/Placement.h>
#include <TrelvonUnits/Shared.h>

#include <string>

namespace Units {

/// Text that is written before or after a number.
///
///   PrefixOrSuffix("kg", Placement::Suffix, true)    12.50 kg
///   PrefixOrSuffix("%", Placement::Suffix, false)    30%
///   PrefixOrSuffix("$", Placement::Prefix, true)     $ 5, and -$ 5: the sign comes first
class TRELVONUNITS_API PrefixOrSuffix {
 public:
  /// @param text       UTF-8. If it is empty, only the number is written, without a space.
  /// @param placement  before or after the number.
  /// @param hasSpace   whether one space separates the text from the number. Input is read with and
  ///                   without spaces, whatever this says.
  PrefixOrSuffix(const std::string& text, Placement placement, bool hasSpace);

  PrefixOrSuffix(const PrefixOrSuffix& other) noexcept;
  PrefixOrSuffix(PrefixOrSuffix&& other) noexcept;  ///< Copies; `other` stays readable.
  ~PrefixOrSuffix();
  PrefixOrSuffix& operator=(const PrefixOrSuffix&) = delete;

  std::string getText() const;     ///< As given; may be empty.
  Placement getPlacement() const;  ///< As given.
  bool hasSpace() const;           ///< As given, even if the text is empty.

 private:
  friend struct RecordAccess;  // reads in place inside the library

  struct Contents;
  const Shared<Contents> contents_;
};

}  // namespace Units
