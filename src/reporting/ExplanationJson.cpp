#include "model/ShownText.h"
#include "reporting/ExplanationWords.h"
#include "reporting/JsonParts.h"
#include "text/ShortNumber.h"

#include <TrelvonUnits/FormulaExplanation.h>

#include <cmath>

namespace Units {

namespace {

using Schemas::JsonMaker;
using Member = JsonMaker::Member;

class Writer {
 public:
  std::string write(const FormulaExplanation& explained);

 private:
  JSON text(const std::string& bytes) { return json_.text(wholeText(bytes)); }
  JSON word(const char* word) { return json_.text(word); }

  /// JSON has no infinities and no NaN: these are texts.
  JSON number(double value) {
    return std::isfinite(value) ? JSON(value) : json_.text(shortNumber(value));
  }

  JSON span(const FormulaSpan& span) {
    return json_.object(Member("text", JsonMaker::number(span.text)),
                        Member("begin", JsonMaker::number(span.begin)),
                        Member("endText", JsonMaker::number(span.endText)),
                        Member("end", JsonMaker::number(span.end)));
  }

  JSON powers(const std::map<std::string, double>& powers) {
    return json_.array(powers, [&](const auto& power) {
      return json_.object(Member("unit", text(power.first)),
                          Member("exponent", number(power.second)));
    });
  }

  JSON token(const FormulaExplanation::Token& token);
  JSON node(const FormulaExplanation::Node& node);

  JsonMaker json_;
};

JSON Writer::token(const FormulaExplanation::Token& token) {
  JSON made = json_.object(Member("kind", word(wordOf(token.kind()))),
                           Member("text", text(token.text())), Member("span", span(token.span())));
  if (token.kind() == FormulaExplanation::TokenKind::Number)
    made.setMember(json_.root, "value", number(token.value()));
  if (!token.symbolTypeId().empty()) {
    made.setMember(json_.root, "symbol", text(token.symbolTypeId()));
    made.setMember(json_.root, "unit", text(token.unitTypeId()));
  }
  return made;
}

JSON Writer::node(const FormulaExplanation::Node& node) {
  JSON made = json_.object(Member("kind", word(wordOf(node.kind()))),
                           Member("token", JsonMaker::number(node.token())),
                           Member("operands", json_.array(node.operands(), JsonMaker::number)),
                           Member("reached", JSON(node.wasReached())));
  if (node.wasReached()) {
    made.setMember(json_.root, "value", number(node.value()));
    if (!node.arePowersLeftOut()) made.setMember(json_.root, "powers", powers(node.powers()));
  }
  return made;
}

std::string Writer::write(const FormulaExplanation& explained) {
  const auto add = [&](const char* name, JSON value) {
    json_.root.setMember(json_.root, name, std::move(value));
  };
  add("formula", text(explained.formula()));
  if (!explained.unitTypeId().empty()) add("unit", text(explained.unitTypeId()));
  add("reason", word(wordOf(explained.reason())));
  if (explained.reason() == FormulaReason::Done) {
    add("value", number(explained.value()));
    add("powers", powers(explained.powers()));
  } else {
    add("exception", word(wordOf(explained.exceptionClass())));
    add("message", text(explained.message()));
    add("span", span(explained.span()));
    add("sentence", text(explained.sentence()));
    add("spellings", json_.array(explained.spellings(), [&](const auto& it) { return text(it); }));
  }
  add("texts", json_.array(explained.texts(), [&](const auto& it) {
    return json_.object(Member("text", text(it.text())),
                        Member("identifier", span(it.identifier())));
  }));
  add("tokens", json_.array(explained.tokens(), [&](const auto& it) { return token(it); }));
  add("nodes", json_.array(explained.nodes(), [&](const auto& it) { return node(it); }));
  add("warnings", json_.array(explained.warnings(), [&](const auto& it) {
    return json_.object(Member("kind", word(wordOf(it.kind()))), Member("span", span(it.span())),
                        Member("sentence", text(it.sentence())),
                        Member("spelling", text(it.spelling())));
  }));
  return json_.root.toString();
}

}  // namespace

std::string FormulaExplanation::toJson() const { return Writer().write(*this); }

}  // namespace Units
