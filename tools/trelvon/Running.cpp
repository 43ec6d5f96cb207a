#include "tools/trelvon/Running.h"

#include "tools/trelvon/Commands.h"
#include "tools/trelvon/Help.h"
#include "tools/trelvon/Json.h"
#include "tools/trelvon/ShownText.h"
#include "tools/trelvon/prompt/Prompt.h"

#include <exception>
#include <new>

namespace tool {

Status runArguments(Context& context) {
  const Arguments& arguments = context.arguments;
  if (arguments.has("version")) {
    context.print("trelvon " TRELVON_TOOL_VERSION "\n");
    return Status::Done;
  }
  if (arguments.has("help")) {
    context.print(arguments.command == nullptr ? programHelp() : commandHelp(*arguments.command));
    return Status::Done;
  }
  return arguments.command == nullptr ? runPrompt(context) : arguments.command->run(context);
}

Status runAndTell(const std::function<Status()>& action,
                  const std::function<void(const Failure&)>& tell) {
  const auto told = [&](const Failure& failure) {
    tell(failure);
    return failure.status();
  };
  try {
    return action();
  } catch (const Failure& failure) {
    return told(failure);
  } catch (const std::bad_alloc&) {
    return told({Status::Files, "out of memory"});
  } catch (const std::exception& error) {  // a refusal of the engine
    return told({Status::Findings, shown(error.what())});
  }
}

void tellFailure(const Failure& failure, const std::string& whose, bool asJson, Output& out,
                 Output& errors) {
  errors.write(whose + errors.tinted("error: ", Tint::Error) + failure.what() + '\n');
  if (!asJson) return;
  JsonWriter json;
  json.beginObject();
  json.key("error");
  json.beginObject();
  json.member("status", static_cast<int>(failure.status()));
  json.member("message", failure.what());
  json.endObject();
  json.endObject();
  out.write(json.text() + '\n');
}

}  // namespace tool
