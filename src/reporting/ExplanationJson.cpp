#include "reporting/ExplanationJson.h"

#include "model/ShownText.h"
#include "reporting/ExplanationWords.h"
#include "text/ShortNumber.h"

#include <TrelvonUnits/FormulaExplanation.h>

#include <cmath>

namespace Units {

namespace {

class Writer {
 public:
  explicit Writer(JsonText& json) : json_(json) {}

  void write(const FormulaExplanation& explained);

 private:
  void text(const char* name, const std::string& bytes) { json_.key(name).text(wholeText(bytes)); }
  void word(const char* name, const char* word) { json_.key(name).text(word); }

  /// JSON has no infinities and no NaN: these are texts.
  void number(const char* name, double value) {
    json_.key(name);
    if (std::isfinite(value))
      json_.number(value);
    else
      json_.text(shortNumber(value));
  }

  template <class Items, class Write>
  void array(const char* name, const Items& items, Write write) {
    json_.key(name).beginArray();
    for (const auto& item : items) write(item);
    json_.endArray();
  }

  template <class Items, class Write>
  void objects(const char* name, const Items& items, Write write) {
    array(name, items, [&](const auto& item) {
      json_.beginObject();
      write(item);
      json_.endObject();
    });
  }

  void span(const char* name, const FormulaSpan& span);
  void powers(const std::map<std::string, double>& powers);
  void token(const FormulaExplanation::Token& token);
  void node(const FormulaExplanation::Node& node);
  void outcome(const FormulaExplanation& explained);

  JsonText& json_;
};

void Writer::span(const char* name, const FormulaSpan& span) {
  json_.key(name).beginObject();
  json_.key("text").whole(span.text);
  json_.key("begin").whole(span.begin);
  json_.key("endText").whole(span.endText);
  json_.key("end").whole(span.end);
  json_.endObject();
}

void Writer::powers(const std::map<std::string, double>& powers) {
  objects("powers", powers, [&](const auto& power) {
    text("unit", power.first);
    number("exponent", power.second);
  });
}

void Writer::token(const FormulaExplanation::Token& token) {
  word("kind", wordOf(token.kind()));
  text("text", token.text());
  span("span", token.span());
  if (token.kind() == FormulaExplanation::TokenKind::Number) number("value", token.value());
  if (token.symbolTypeId().empty()) return;
  text("symbol", token.symbolTypeId());
  text("unit", token.unitTypeId());
}

void Writer::node(const FormulaExplanation::Node& node) {
  word("kind", wordOf(node.kind()));
  json_.key("token").whole(node.token());
  array("operands", node.operands(), [&](std::size_t operand) { json_.whole(operand); });
  json_.key("reached").boolean(node.wasReached());
  if (!node.wasReached()) return;
  number("value", node.value());
  if (!node.arePowersLeftOut()) powers(node.powers());
}

void Writer::outcome(const FormulaExplanation& explained) {
  if (explained.reason() == FormulaReason::Done) {
    number("value", explained.value());
    powers(explained.powers());
    return;
  }
  word("exception", wordOf(explained.exceptionClass()));
  text("message", explained.message());
  span("span", explained.span());
  text("sentence", explained.sentence());
  array("spellings", explained.spellings(),
        [&](const std::string& spelling) { json_.text(wholeText(spelling)); });
}

void Writer::write(const FormulaExplanation& explained) {
  json_.beginObject();
  text("formula", explained.formula());
  if (!explained.unitTypeId().empty()) text("unit", explained.unitTypeId());
  word("reason", wordOf(explained.reason()));
  outcome(explained);
  objects("texts", explained.texts(), [&](const FormulaExplanation::Text& it) {
    text("text", it.text());
    span("identifier", it.identifier());
  });
  objects("tokens", explained.tokens(), [&](const auto& it) { token(it); });
  objects("nodes", explained.nodes(), [&](const auto& it) { node(it); });
  objects("warnings", explained.warnings(), [&](const FormulaExplanation::Warning& it) {
    word("kind", wordOf(it.kind()));
    span("span", it.span());
    text("sentence", it.sentence());
    text("spelling", it.spelling());
  });
  json_.endObject();
}

}  // namespace

void writeExplanation(JsonText& json, const FormulaExplanation& explained) {
  Writer(json).write(explained);
}

std::string FormulaExplanation::toJson() const {
  JsonText json;
  writeExplanation(json, *this);
  return json.str();
}

}  // namespace Units
