#include "tools/trelvon/Context.h"
#include "tools/trelvon/Json.h"
#include "tools/trelvon/Run.h"
#include "tools/trelvon/ShownText.h"

#include <algorithm>

namespace tool {

namespace {

/// Reads the operand as a display shows values.
Status readShown(Context& context, const Units::ValueDisplay& display) {
  const std::string& text = context.arguments.operands[0];
  const Units::DisplayReading reading = display.read(text);
  if (!reading.isRead()) {
    const Units::FormulaSpan span = reading.span();
    const auto widthOfText = [&](std::size_t begin, std::size_t end) {
      return widthOf(shown(text.substr(begin, end - begin)));
    };
    const std::size_t marks = std::max<std::size_t>(widthOfText(span.begin, span.end), 1);
    throw Failure(Status::Findings, "the text is refused\n" + shown(text) + '\n' +
                                        std::string(widthOfText(0, span.begin), ' ') + '^' +
                                        std::string(marks - 1, '~') + '\n' + reading.sentence());
  }
  context.out.write((context.wantsJson() ? reading.toJson() : shortestText(reading.value())) +
                    '\n');
  return Status::Done;
}

}  // namespace

Status runFormat(Context& context) {
  std::optional<std::string> unit;
  const NumberFormat format = context.numberFormat(unit);
  if (context.arguments.has("read")) return readShown(context, context.display(format));
  const double value = context.evaluate(context.arguments.operands[0], nullptr);
  const std::string text = numberText(context.definitions.engine(), value, format);
  if (!context.wantsJson()) {
    context.out.write(shown(text) + '\n');
    return Status::Done;
  }
  JsonWriter json;
  json.beginObject();
  json.member("value", value);
  json.member("text", text);
  if (unit) json.member("unit", *unit);
  json.endObject();
  context.out.write(json.text() + '\n');
  return Status::Done;
}

}  // namespace tool
