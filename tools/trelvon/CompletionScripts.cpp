#include "tools/trelvon/CompletionScripts.h"

#include "tools/trelvon/Commands.h"
#include "tools/trelvon/Context.h"
#include "tools/trelvon/Run.h"
#include "tools/trelvon/ShownText.h"

#include <sstream>

namespace tool {

namespace {

enum class Kind { Text, Choices, Folder, File, Unit };

/// What a shell may offer as the value of an option or as an operand.
struct Value {
  std::string name;  ///< As in the usage line.
  Kind kind = Kind::Text;
  std::string choices = {};  ///< With spaces between them.
};

std::string joined(const std::vector<std::string>& texts, const std::string& separator) {
  std::string all;
  for (const std::string& text : texts) all += (all.empty() ? "" : separator) + text;
  return all;
}

Value valueNamed(const std::string& name) {
  const std::string bare = name.substr(0, name.find('.'));
  const Kind kind = bare == "FOLDER"                                   ? Kind::Folder
                    : bare == "FILE" || bare == "OLD" || bare == "NEW" ? Kind::File
                    : bare == "UNIT" || bare == "FROM" || bare == "TO" ? Kind::Unit
                    : bare.find('|') != std::string::npos              ? Kind::Choices
                                                                       : Kind::Text;
  Value value = {name, kind};
  if (kind == Kind::Choices) {
    value.choices = name;
    for (char& c : value.choices)
      if (c == '|') c = ' ';
  }
  return value;
}

Value valueOf(const Option& option) {
  if (option.choices.empty()) return valueNamed(option.value);
  return {option.value, Kind::Choices, joined(option.choices, " ")};
}

std::vector<Value> operandsOf(const Command& command) {
  std::vector<Value> operands;
  std::istringstream names(command.operands);
  for (std::string name; names >> name;) operands.push_back(valueNamed(name));
  return operands;
}

std::vector<Command> shownCommands() {
  std::vector<Command> all;
  for (const Command& command : commands())
    if (!command.isHidden) all.push_back(command);
  return all;
}

/// The text in single quotes. @param inside  what a quote in it becomes.
std::string quoted(const std::string& text, const std::string& inside) {
  std::string out = "'";
  for (const char c : text) out += c == '\'' ? inside : std::string(1, c);
  return out + '\'';
}

// --- bash: the words that fit, by the command and the word before the cursor -----------------

std::string bashWords(const Value& value) {
  switch (value.kind) {
    case Kind::Choices:
      return "compgen -W '" + value.choices + "' -- \"$word\"";
    case Kind::Folder:
      return "compgen -d -- \"$word\"";
    case Kind::File:
      return "compgen -f -- \"$word\"";
    case Kind::Unit:
      return "_trelvon_units \"$word\"";
    default:
      return ":";
  }
}

std::string bashOptions(const std::vector<Option>& options, const std::string& command) {
  std::string out;
  for (const Option& option : options)
    if (!option.value.empty())
      out +=
          "    " + command + "\" --" + option.name + "\") " + bashWords(valueOf(option)) + " ;;\n";
  return out;
}

std::string optionNames(const std::vector<Option>& options) {
  std::vector<std::string> names;
  for (const Option& option : options) names.push_back("--" + option.name);
  return joined(names, " ");
}

std::string bashScript() {
  std::vector<std::string> names;
  std::string values, operands, options;
  for (const Command& command : shownCommands()) {
    names.push_back(command.name);
    values += bashOptions(command.options, command.name);
    options += "    " + command.name + ") options+=' " + optionNames(command.options) + "' ;;\n";
    operands += "    " + command.name + ") ";
    std::string last;
    for (const Value& value : operandsOf(command)) {
      const std::string words = bashWords(value);
      if (value.kind != Kind::Text && words != last) operands += words + "; ";
      last = words;
    }
    operands += ":;;\n";
  }
  return "# Completion of trelvon for bash, written by `trelvon completion bash`.\n"
         "_trelvon_units() {\n"
         "  local id rest\n"
         "  trelvon list units 2>/dev/null | while read -r id rest; do\n"
         "    [[ $id == \"$1\"* ]] && printf '%s\\n' \"$id\"\n"
         "  done\n"
         "}\n"
         "_trelvon_words() {\n"
         "  local word=$1 before=$2 command=$3 options='" +
         optionNames(commonOptions()) + "'\n  case \"$command $before\" in\n" + values +
         bashOptions(commonOptions(), "*") +
         "    *)\n"
         "      if [[ $word == -* ]]; then\n"
         "        case $command in\n" +
         options +
         "        esac\n"
         "        compgen -W \"$options\" -- \"$word\"\n"
         "        return\n"
         "      fi\n"
         "      case $command in\n" +
         operands + "    '') compgen -W '" + joined(names, " ") +
         "' -- \"$word\" ;;\n"
         "      esac ;;\n"
         "  esac\n"
         "}\n"
         "_trelvon() {\n"
         "  local index command=\n"
         "  for ((index = 1; index < COMP_CWORD; ++index)); do\n"
         "    case ${COMP_WORDS[index]} in\n"
         "      " +
         joined(names, "|") +
         ") command=${COMP_WORDS[index]}; break ;;\n"
         "    esac\n"
         "  done\n"
         "  local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD - 1]}\n"
         "  [[ $before == = ]] && before=${COMP_WORDS[COMP_CWORD - 2]}  # --option=value\n"
         "  mapfile -t COMPREPLY < <(_trelvon_words \"${word#=}\" \"$before\" \"$command\")\n"
         "  [[ -e ${COMPREPLY[0]} ]] && compopt -o filenames 2>/dev/null\n"
         "  return 0\n"
         "}\n"
         "complete -F _trelvon trelvon\n";
}

// --- zsh: specifications for its function _arguments ---------------------------------------

std::string zshQuoted(const std::string& text) { return quoted(text, "'\\''"); }

std::string zshEscaped(const std::string& text) {
  std::string out;
  for (const char c : text)
    out += (c == ':' || c == '[' || c == ']' ? "\\" : "") + std::string(1, c);
  return out;
}

std::string zshValue(const Value& value) {
  const std::string action = value.kind == Kind::Choices  ? '(' + value.choices + ')'
                             : value.kind == Kind::Folder ? "_files -/"
                             : value.kind == Kind::File   ? "_files"
                             : value.kind == Kind::Unit   ? "_trelvon_units"
                                                          : "()";  // a blank hides options
  return ':' + zshEscaped(value.name) + ':' + action;
}

std::string zshOptions(const std::vector<Option>& options) {
  std::string out;
  for (const Option& option : options) {
    std::string others =
        option.excludes.empty() ? "" : "(--" + joined(option.excludes, " --") + ')';
    if (option.isRepeatable) others += '*';
    out +=
        " \\\n        " + zshQuoted(others + "--" + option.name + '[' + zshEscaped(option.text) +
                                    ']' + (option.value.empty() ? "" : zshValue(valueOf(option))));
  }
  return out;
}

std::string zshScript() {
  std::string names, cases;
  for (const Command& command : shownCommands()) {
    names += "    " + zshQuoted(command.name + ':' + zshEscaped(command.summary)) + '\n';
    cases += "      " + command.name + ") _arguments" + zshOptions(commonOptions()) +
             zshOptions(command.options);
    std::size_t place = 0;
    for (const Value& value : operandsOf(command)) {
      ++place;
      const bool isLast = place == command.least && command.most == anyNumber;
      cases +=
          " \\\n        " + zshQuoted((isLast ? "*" : std::to_string(place)) + zshValue(value));
    }
    cases += " ;;\n";
  }
  return "#compdef trelvon\n"
         "# Completion of trelvon for zsh, written by `trelvon completion zsh`.\n"
         "_trelvon_units() {\n"
         "  local -a units\n"
         "  units=(${(f)\"$(trelvon list units 2>/dev/null)\"})\n"
         "  units=(${units%% *})\n"
         "  compadd -a units\n"
         "}\n"
         "_trelvon() {\n"
         "  local context curcontext=\"$curcontext\" state line\n"
         "  typeset -A opt_args\n"
         "  local -a commands\n"
         "  commands=(\n" +
         names + "  )\n  _arguments -C" + zshOptions(commonOptions()) +
         " \\\n        '1: :->command' '*:: :->argument' && return\n"
         "  case $state in\n"
         "    command) _describe -t commands command commands ;;\n"
         "    argument) case $words[1] in\n" +
         cases +
         "    esac ;;\n"
         "  esac\n"
         "}\n"
         "if [[ $funcstack[1] == _trelvon ]]; then _trelvon \"$@\"; else compdef _trelvon trelvon; "
         "fi\n";
}

// --- fish: a line for each option and operand ----------------------------------------------

std::string fishQuoted(const std::string& text) { return quoted(text, "\\'"); }

std::string fishValue(const Value& value) {
  switch (value.kind) {
    case Kind::Choices:
      return " -a " + fishQuoted(value.choices);
    case Kind::Folder:
      return " -a '(__fish_complete_directories)'";
    case Kind::File:
      return " -F";
    case Kind::Unit:
      return " -a '(__trelvon_units)'";
    default:
      return "";
  }
}

std::string fishOptions(const std::vector<Option>& options, const std::string& start) {
  std::string out;
  for (const Option& option : options) {
    const Value value = valueOf(option);
    const std::string takes = option.value.empty() ? "" : value.kind == Kind::File ? " -r" : " -x";
    out += start + " -l " + option.name + takes + (takes.empty() ? "" : fishValue(value)) + " -d " +
           fishQuoted(option.text) + '\n';
  }
  return out;
}

std::string fishScript() {
  const std::string start = "complete -c trelvon";
  std::string out =
      "# Completion of trelvon for fish, written by `trelvon completion fish`.\n"
      "function __trelvon_units\n"
      "    trelvon list units 2>/dev/null | string replace -r ' .*' ''\n"
      "end\n" +
      start + " -f\n" + fishOptions(commonOptions(), start);
  for (const Command& command : shownCommands()) {
    out += start + " -n __fish_use_subcommand -a " + command.name + " -d " +
           fishQuoted(command.summary) + '\n';
    const std::string within = start + " -n '__fish_seen_subcommand_from " + command.name + '\'';
    out += fishOptions(command.options, within);
    std::string last;
    for (const Value& value : operandsOf(command)) {
      const std::string offered = fishValue(value);
      if (offered != last) out += within + offered + '\n';
      last = offered;
    }
  }
  return out;
}

}  // namespace

std::string completionScript(const std::string& shell) {
  if (shell == "bash") return bashScript();
  if (shell == "zsh") return zshScript();
  if (shell == "fish") return fishScript();
  throw Failure(Status::Usage, inQuotes(shell) + " is not one of bash, zsh, fish");
}

Status runCompletion(Context& context) {
  context.print(completionScript(context.arguments.operands[0]));
  return Status::Done;
}

}  // namespace tool
