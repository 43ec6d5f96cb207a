#include "tools/trelvon/prompt/Prompt.h"

#include "tools/trelvon/Running.h"
#include "tools/trelvon/prompt/LineReader.h"
#include "tools/trelvon/prompt/Session.h"

#include <unistd.h>

#include <algorithm>

namespace tool {

namespace {

constexpr const char* promptText = "> ";

/// Where the lines come from. With a terminal, `isPrompt` is set.
std::unique_ptr<LineReader> openLines(Context& context, Session& session, bool& isPrompt) {
  isPrompt = isatty(STDIN_FILENO) == 1 && isatty(STDOUT_FILENO) == 1;
  if (!isPrompt) return readPlainLines(nullptr);
  const auto warn = [&context](const std::string& sentence) { context.warn(sentence); };
  const auto complete = [&session](std::string_view before) { return session.complete(before); };
  auto editor = editLines(promptText, complete, warn);
  return editor ? std::move(editor) : readPlainLines(promptText);
}

}  // namespace

Status runPrompt(Context& context) {
  context.definitions.engine();  // reports a missing catalog before the first line
  Session session(context);
  bool isPrompt = false;
  const auto lines = openLines(context, session, isPrompt);
  Status worst = Status::Done;
  for (std::size_t number = 1; !session.hasEnded(); ++number) {
    context.out.flush();
    context.errors.flush();
    const auto line = lines->next();
    if (!line) break;
    const Status status = runAndTell(
        [&] { return session.run(*line); },
        [&](const Failure& failure) {
          tellFailure(failure, isPrompt ? "" : "trelvon: line " + std::to_string(number) + ": ",
                      context.wantsJson(), context.out, context.errors);
        });
    if (!isPrompt) worst = std::max(worst, status);
  }
  return worst;
}

}  // namespace tool
