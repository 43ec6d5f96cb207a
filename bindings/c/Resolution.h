#pragma once

#include "bindings/c/Fault.h"

#include <TrelvonUnits/VariableResolver.h>
#include <TrelvonUnits/trelvon.h>

#include <optional>
#include <string>

struct trelvon_answer {
  std::string text;
  bool isSet = false;
};

namespace C {

/// A C resolver as the engine calls it.
class Resolution {
 public:
  enum class Refusals {
    Placed,     // each is told to the engine as a ParseException, which tells its place
    Explained,  // TRELVON_PARSE is the exception that explanations tell of, any other is a Fault
  };

  Resolution(trelvon_resolver resolver, void* context, Refusals refusals)
      : resolver_(resolver), context_(context), refusals_(refusals) {}

  /// Calls the resolver; refers to this object.
  VariableResolver calls();

  /// The last refusal, if there was one.
  const std::optional<Fault>& fault() const { return fault_; }

 private:
  std::string ask(const std::string& name);

  const trelvon_resolver resolver_;
  void* const context_;
  const Refusals refusals_;
  std::optional<Fault> fault_;
};

}  // namespace C
