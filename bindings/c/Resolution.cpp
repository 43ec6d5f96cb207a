#include "bindings/c/Resolution.h"

#include "bindings/c/Guard.h"
#include "bindings/c/Text.h"

#include <TrelvonUnits/Exceptions.h>

#include <utility>

namespace C {
namespace {

Fault refusal(int status, std::string message) {
  if (status == TRELVON_OK) return {TRELVON_CALLBACK, "The resolver gave no answer."};
  const bool isKnown = status > TRELVON_OK && status <= TRELVON_OTHER;
  return {isKnown ? static_cast<trelvon_status>(status) : TRELVON_CALLBACK, std::move(message)};
}

}  // namespace

VariableResolver Resolution::calls() {
  if (resolver_ == nullptr) return {};
  return [this](const std::string& name) { return ask(name); };
}

std::string Resolution::ask(const std::string& name) {
  trelvon_answer answer;
  const int status = resolver_(context_, textOf(name), &answer);
  if (status == TRELVON_OK && answer.isSet) return std::move(answer.text);
  fault_ = refusal(status, std::move(answer.text));
  if (refusals_ == Refusals::Explained && fault_->status != TRELVON_PARSE) throw *fault_;
  throw Units::ParseException(fault_->message);
}

}  // namespace C

trelvon_status trelvon_answer_text(trelvon_answer* answer, trelvon_text text) {
  return C::guard(nullptr, [&] {
    C::require(answer);
    answer->text = C::stringOf(text);
    answer->isSet = true;
  });
}
