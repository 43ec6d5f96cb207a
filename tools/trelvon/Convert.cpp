#include "tools/trelvon/Context.h"
#include "tools/trelvon/Json.h"
#include "tools/trelvon/Run.h"
#include "tools/trelvon/ShownText.h"
#include "tools/trelvon/csv/PlainNumber.h"

namespace tool {

Status runConvert(Context& context) {
  const Arguments& arguments = context.arguments;
  if (arguments.has("column")) return convertColumns(context);
  for (const char* const option :
       {"from", "to", "from-header", "separator", "no-header", "on-error"})
    if (arguments.has(option))
      throw Failure(Status::Usage, std::string("--") + option + " needs --column");
  if (arguments.operands.size() != 3)
    throw Failure(Status::Usage,
                  "an argument is missing; usage: trelvon convert NUMBER FROM TO, or --column");

  if (readPlainNumber(arguments.operands[0]) && !arguments.has("as") && !context.isShared())
    context.definitions.loadOnly({arguments.operands[1], arguments.operands[2]});
  const std::string from = context.unit(arguments.operands[1]).getTypeId();
  const std::string to = context.unit(arguments.operands[2]).getTypeId();
  std::optional<std::string> shownUnit = to;
  const NumberFormat format = context.numberFormat(shownUnit);
  const Units::UnitsEngine& engine = context.definitions.engine();
  const double value = engine.convert(context.evaluate(arguments.operands[0], &from), from, to);
  const std::string text = numberText(engine, value, format);
  if (!context.wantsJson()) {
    context.out.write(shown(text) + '\n');
    return Status::Done;
  }
  JsonWriter json;
  json.beginObject();
  json.member("from", from);
  json.member("to", to);
  json.member("value", value);
  json.member("text", text);
  json.endObject();
  context.out.write(json.text() + '\n');
  return Status::Done;
}

}  // namespace tool
