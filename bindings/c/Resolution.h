#pragma once

#include <TrelvonUnits/VariableResolver.h>
#include <TrelvonUnits/trelvon.h>

#include <cstddef>
#include <string>
#include <vector>

struct trelvon_answer {
  std::string text;
  bool isSet = false;
};

namespace C {

/// A C resolver as the engine calls it.
class Resolution {
 public:
  enum class Refusals { Faults, Explained };

  /// @param refusals   Explained: TRELVON_PARSE stands for the exception that explanations report.
  /// @param remembers  whether `replay` will be asked for.
  Resolution(trelvon_resolver resolver, void* context, Refusals refusals, bool remembers);

  /// Calls the resolver; refers to this object.
  VariableResolver calls();

  /// Gives the answers that were given, in the same order, and then refuses; refers to this object.
  VariableResolver replay() const;

 private:
  std::string ask(const std::string& name);
  void remember(const std::string& answer);

  const trelvon_resolver resolver_;
  void* const context_;
  const Refusals refusals_;
  const bool remembers_;
  std::vector<std::string> answers_;
};

}  // namespace C
