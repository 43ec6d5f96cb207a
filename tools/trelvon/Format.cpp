#include "tools/trelvon/Context.h"
#include "tools/trelvon/Json.h"
#include "tools/trelvon/Run.h"
#include "tools/trelvon/ShownText.h"

namespace tool {

Status runFormat(Context& context) {
  std::optional<std::string> unit;
  const NumberFormat format = context.numberFormat(unit);
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
