#include "tools/trelvon/Commands.h"
#include "tools/trelvon/CompletionScripts.h"
#include "tools/trelvon/Context.h"
#include "tools/trelvon/Files.h"
#include "tools/trelvon/Help.h"
#include "tools/trelvon/Run.h"
#include "tools/trelvon/ShownText.h"
#include "tools/trelvon/prompt/Session.h"

#include <cctype>

namespace tool {

namespace {

/// A text for roff: characters that have a special meaning or look there are written by name.
std::string roff(std::string_view text) {
  std::string out;
  bool isAtLineStart = true;
  for (const char c : text) {
    if (isAtLineStart && c == '.') out += "\\&";
    isAtLineStart = c == '\n';
    switch (c) {
      case '\\':
        out += "\\(rs";
        break;
      case '-':
        out += "\\-";
        break;
      case '\'':
        out += "\\(aq";
        break;
      case '"':
        out += "\\(dq";
        break;
      case '`':
        out += "\\(ga";
        break;
      case '^':
        out += "\\(ha";
        break;
      case '~':
        out += "\\(ti";
        break;
      default:
        out += c;
    }
  }
  return out;
}

std::string bold(const std::string& text) { return "\\fB" + roff(text) + "\\fR"; }

std::string section(const std::string& name, const std::string& body) {
  return ".SH " + name + '\n' + body + '\n';
}

/// A paragraph with a tag before it.
std::string tagged(const std::string& tag, const std::string& text) {
  return ".TP\n" + tag + '\n' + roff(text) + '\n';
}

std::string verbatim(const std::string& text) { return ".nf\n" + roff(text) + ".fi"; }

std::string optionParagraphs(const std::vector<Option>& options) {
  std::string text;
  for (const Option& option : options)
    text += tagged(bold(optionUsage(option)), optionText(option));
  return text.substr(0, text.size() - 1);
}

std::string pageName(const Command* command) {
  return command == nullptr ? "trelvon" : "trelvon-" + command->name;
}

std::string title(const std::string& name, const std::string& summary) {
  std::string capitals = name;
  for (char& c : capitals) c = static_cast<char>(std::toupper(static_cast<unsigned char>(c)));
  return ".TH " + roff(capitals) + " 1 \"\" \"trelvon " TRELVON_TOOL_VERSION "\"\n" +
         section("NAME", roff(name) + " \\- " + roff(summary));
}

std::string seeAlso(const Command* page) {
  std::string text;
  for (const Command& command : commands())
    if (!command.isHidden && &command != page)
      text += (text.empty() ? ".BR " : " ,\n.BR ") + roff(pageName(&command)) + " (1)";
  return section("SEE ALSO", page == nullptr ? text : ".BR trelvon (1)");
}

std::string commandPage(const Command& command) {
  std::string examples;
  for (const Example& example : command.examples) {
    examples += "$ " + example.line + '\n' + example.printed;
    if (examples.back() != '\n') examples += '\n';
  }
  return title(pageName(&command), command.summary) +
         section("SYNOPSIS",
                 bold("trelvon " + command.name) + " [OPTION...] " + roff(command.operands)) +
         section("DESCRIPTION", roff(command.summary) + ".\n" + roff(command.details)) +
         (command.options.empty() ? "" : section("OPTIONS", optionParagraphs(command.options))) +
         section("OPTIONS OF EVERY COMMAND", optionParagraphs(commonOptions())) +
         section("EXIT STATUS", roff(exitStatusText)) +
         section("EXAMPLES",
                 "With the exit status in brackets if it is not 0:\n.PP\n" + verbatim(examples)) +
         seeAlso(&command);
}

std::string programPage() {
  std::string names;
  for (const Command& command : commands())
    if (!command.isHidden)
      names += tagged(bold(command.name) + ' ' + roff(command.operands), command.summary);
  names.pop_back();
  return title("trelvon", "units of measure on the command line") +
         section("SYNOPSIS", bold("trelvon") + " COMMAND [OPTION...] [ARGUMENT...]\n.br\n" +
                                 bold("trelvon") + " [OPTION...]") +
         section("DESCRIPTION",
                 "Converts numbers and tables, evaluates and explains formulas whose numbers carry "
                 "units, and writes, checks and shows definitions.\n"
                 "Without a command, it starts a prompt.") +
         section("COMMANDS", names) + section("OPTIONS", optionParagraphs(commonOptions())) +
         section(
             "PROMPT",
             "Each line is one of these:\n.PP\n" + verbatim(promptHelp) +
                 "\n.PP\nIf standard input or output is not a terminal, plain lines are read, and "
                 "the exit status is the highest of any line.") +
         section("FILES", tagged("\\fI$XDG_STATE_HOME/trelvon/history\\fR",
                                 "The lines of the prompt. Without this variable, the file is "
                                 "~/.local/state/trelvon/history.")
                              .append(tagged("\\fI~/.editrc\\fR",
                                             "Key bindings of the prompt; see editrc(5)."))) +
         section("ENVIRONMENT", tagged("NO_COLOR", "If set, turns off colors.")) +
         section("EXIT STATUS", roff(exitStatusText)) + seeAlso(nullptr);
}

std::string page(const Command* command) {
  return command == nullptr ? programPage() : commandPage(*command);
}

/// Everything that is installed for the commands, in the folders below a prefix.
void writeAll(const std::string& folder) {
  const auto write = [&](const std::string& name, const std::string& text) {
    writeFile(folder + '/' + name, text, true);
  };
  for (const Command& command : commands())
    if (!command.isHidden) write("man/man1/" + pageName(&command) + ".1", page(&command));
  write("share/bash-completion/completions/trelvon", completionScript("bash"));
  write("share/zsh/site-functions/_trelvon", completionScript("zsh"));
  write("share/fish/vendor_completions.d/trelvon.fish", completionScript("fish"));
  write("man/man1/trelvon.1", page(nullptr));
}

}  // namespace

Status runManual(Context& context) {
  const Arguments& arguments = context.arguments;
  if (arguments.has("out")) {
    writeAll(arguments.text("out"));
    if (context.wantsJson()) context.print("");
    return Status::Done;
  }
  const Command* const command =
      arguments.operands.empty() ? nullptr : findCommand(arguments.operands[0]);
  if (!arguments.operands.empty() && (command == nullptr || command->isHidden))
    throw Failure(Status::Usage, "there is no command " + inQuotes(arguments.operands[0]));
  context.print(page(command));
  return Status::Done;
}

}  // namespace tool
