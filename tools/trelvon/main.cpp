/// The program `trelvon`: reads the command line, runs a command, and tells the shell how it ended.
#include "tools/trelvon/Commands.h"
#include "tools/trelvon/Context.h"
#include "tools/trelvon/Help.h"
#include "tools/trelvon/Json.h"
#include "tools/trelvon/Output.h"
#include "tools/trelvon/ShownText.h"

#include <algorithm>
#include <exception>
#include <string>
#include <vector>

namespace {

using namespace tool;

/// The value of --color, before the command line is understood.
std::string colorChoice(const std::vector<std::string>& words) {
  const auto valueIs = [&](const std::string& value) {
    const auto option = std::find(words.begin(), words.end(), "--color");
    return std::find(words.begin(), words.end(), "--color=" + value) != words.end() ||
           (option != words.end() && option + 1 != words.end() && *(option + 1) == value);
  };
  return valueIs("always") ? "always" : valueIs("never") ? "never" : "auto";
}

Status run(const Arguments& arguments, Output& out, Output& errors) {
  if (arguments.has("version")) {
    out.write("trelvon " TRELVON_TOOL_VERSION "\n");
    return Status::Done;
  }
  if (arguments.has("help")) {
    out.write(arguments.command == nullptr ? programHelp() : commandHelp(*arguments.command));
    return Status::Done;
  }
  // Never deleted: the system takes back the memory of a process faster than it can be freed.
  static Context* const context = new Context(arguments, out, errors);
  return arguments.command->run(*context);
}

/// Tells a failure on standard error and, for programs that read JSON, as an object.
void tell(const Failure& failure, const std::string& command, bool asJson, Output& out,
          Output& errors) {
  errors.write((command.empty() ? "trelvon: " : "trelvon " + command + ": ") +
               errors.tinted("error: ", Tint::Error) + failure.what() + '\n');
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

Status runAndTell(const std::vector<std::string>& words, Output& out, Output& errors) {
  const auto isCommand = [](const std::string& word) {
    return std::any_of(commands().begin(), commands().end(),
                       [&](const Command& command) { return command.name == word; });
  };
  const auto command = std::find_if(words.begin(), words.end(), isCommand);
  const auto has = [&](const std::string& option) {
    return std::any_of(words.begin(), words.end(), [&](const std::string& word) {
      return word.compare(0, option.size(), option) == 0;
    });
  };
  const auto tellOf = [&](const Failure& failure) {
    // Where standard output is a table, no object may end it.
    tell(failure, command == words.end() ? "" : *command, has("--json"),
         has("--column") ? errors : out, errors);
    return failure.status();
  };
  try {
    static const Arguments arguments = readArguments(words);
    return run(arguments, out, errors);
  } catch (const Failure& failure) {
    return tellOf(failure);
  } catch (const std::bad_alloc&) {
    return tellOf({Status::Files, "there is not enough memory"});
  } catch (const std::exception& error) {  // what the engine refuses
    return tellOf({Status::Findings, shown(error.what())});
  }
}

}  // namespace

int main(int count, char** values) {
  occupyStandardStreams();
  const std::vector<std::string> words(values + std::min(count, 1), values + count);
  Output out(Stream::Out, colorChoice(words)), errors(Stream::Error, colorChoice(words));
  Status status = runAndTell(words, out, errors);
  try {
    out.flush();
  } catch (const Failure& failure) {
    tell(failure, "", false, out, errors);
    status = failure.status();
  }
  try {
    errors.flush();
  } catch (const Failure&) {  // there is nobody left to tell
  }
  return static_cast<int>(status);
}
