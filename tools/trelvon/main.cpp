/// The program `trelvon`: reads the command line, runs a command, and returns its exit status.
#include "tools/trelvon/Commands.h"
#include "tools/trelvon/Context.h"
#include "tools/trelvon/Output.h"
#include "tools/trelvon/Running.h"

#include <algorithm>
#include <csignal>
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

Status run(const std::vector<std::string>& words, Output& out, Output& errors) {
  const auto command = std::find_if(words.begin(), words.end(), [](const std::string& word) {
    return findCommand(word) != nullptr;
  });
  const auto has = [&](const std::string& option) {
    return std::any_of(words.begin(), words.end(), [&](const std::string& word) {
      return word.compare(0, option.size(), option) == 0;
    });
  };
  const auto action = [&] {
    static const Arguments arguments = readArguments(words);
    // Never deleted: the system takes back the memory of a process faster than it can be freed.
    static Context* const context = new Context(arguments, out, errors);
    return runArguments(*context);
  };
  return runAndTell(action, [&](const Failure& failure) {
    // If standard output is a table, no JSON object may follow it.
    tellFailure(failure, command == words.end() ? "trelvon: " : "trelvon " + *command + ": ",
                has("--json"), has("--column") ? errors : out, errors);
  });
}

}  // namespace

int main(int count, char** values) {
  occupyStandardStreams();
  std::signal(SIGXFSZ, SIG_IGN);  // writing fails instead, and that is reported
  const std::vector<std::string> words(values + std::min(count, 1), values + count);
  Output out(Stream::Out, colorChoice(words)), errors(Stream::Error, colorChoice(words));
  Status status = run(words, out, errors);
  try {
    out.flush();
  } catch (const Failure& failure) {
    tellFailure(failure, "trelvon: ", false, out, errors);
    status = failure.status();
  }
  try {
    errors.flush();
  } catch (const Failure&) {  // there is nobody left to tell
  }
  return static_cast<int>(status);
}
