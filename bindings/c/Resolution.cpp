#include "bindings/c/Resolution.h"

#include "bindings/c/Fault.h"
#include "bindings/c/Guard.h"
#include "bindings/c/Text.h"

#include <TrelvonUnits/Exceptions.h>

namespace C {
namespace {

/// A formula may have millions of variables. Keeping all answers just to report a span would fill
/// the memory.
constexpr std::size_t mostAnswers = 10000;

}  // namespace

Resolution::Resolution(trelvon_resolver resolver, void* context, Refusals refusals, bool remembers)
    : resolver_(resolver), context_(context), refusals_(refusals), remembers_(remembers) {}

VariableResolver Resolution::calls() {
  if (resolver_ == nullptr) return {};
  return [this](const std::string& name) { return ask(name); };
}

std::string Resolution::ask(const std::string& name) {
  trelvon_answer answer;
  const int status = resolver_(context_, textOf(name), &answer);
  if (status == TRELVON_OK && answer.isSet) {
    if (remembers_) remember(answer.text);
    return answer.text;
  }
  if (status == TRELVON_OK) throw Fault(TRELVON_CALLBACK, "The resolver gave no answer.");
  if (status == TRELVON_PARSE && refusals_ == Refusals::Explained)
    throw Units::ParseException(answer.text);
  const bool isKnown = status > TRELVON_OK && status <= TRELVON_OTHER;
  throw Fault(isKnown ? static_cast<trelvon_status>(status) : TRELVON_CALLBACK, answer.text);
}

void Resolution::remember(const std::string& answer) {
  if (answers_.size() < mostAnswers) answers_.push_back(answer);
}

VariableResolver Resolution::replay() const {
  return [this, next = std::size_t{0}](const std::string& name) mutable {
    if (next == answers_.size()) throw Units::ParseException("Unrecognized identifier: " + name);
    return answers_[next++];
  };
}

}  // namespace C

trelvon_status trelvon_answer_text(trelvon_answer* answer, trelvon_text text) {
  return C::guard(nullptr, [&] {
    C::require(answer);
    answer->text = C::stringOf(text);
    answer->isSet = true;
  });
}
