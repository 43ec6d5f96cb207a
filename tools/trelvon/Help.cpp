#include "tools/trelvon/Help.h"

#include "tools/trelvon/Commands.h"

#include <algorithm>

namespace tool {

namespace {

constexpr std::size_t textColumn = 24, lineWidth = 100;

/// Fills lines with words. All lines but the first are indented to a column, where the first line
/// begins already.
std::string filled(const std::string& text, std::size_t column) {
  std::string out;
  std::size_t width = column;
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find(' ', begin), text.size());
    if (width > column && width + 1 + end - begin > lineWidth) {
      out += '\n' + std::string(column, ' ');
      width = column;
    } else if (width > column) {
      out += ' ';
      ++width;
    }
    out += text.substr(begin, end - begin);
    width += end - begin;
    begin = end + 1;
  }
  return out + '\n';
}

std::string row(const std::string& name, const std::string& text) {
  std::string line = "  " + name;
  if (line.size() + 1 < textColumn)
    line.append(textColumn - line.size(), ' ');
  else
    line += '\n' + std::string(textColumn, ' ');
  return line + filled(text, textColumn);
}

std::string optionRows(const std::vector<Option>& options) {
  std::string text;
  for (const Option& option : options) text += row(optionUsage(option), optionText(option));
  return text;
}

}  // namespace

std::string optionUsage(const Option& option) {
  return "--" + option.name + (option.value.empty() ? "" : ' ' + option.value);
}

std::string optionText(const Option& option) {
  std::string text = option.text;
  if (option.range.highest >= option.range.lowest)
    text += " (" + std::to_string(option.range.lowest) + " to " +
            std::to_string(option.range.highest) + ")";
  return option.isRepeatable ? text + "; repeatable" : text;
}

std::string programHelp() {
  std::string text =
      "trelvon: units of measure on the command line\n\n"
      "Usage: trelvon COMMAND [OPTION...] [ARGUMENT...]\n"
      "       trelvon [OPTION...]  starts a prompt; type `help` there\n\nCommands:\n";
  for (const Command& command : commands())
    if (!command.isHidden) text += row(command.name, command.summary);
  text += "\nOptions of every command:\n" + optionRows(commonOptions());
  return text + '\n' + filled("Exit status: " + std::string(exitStatusText), 0);
}

std::string commandHelp(const Command& command) {
  std::string text = "Usage: trelvon " + command.name + " [OPTION...]" +
                     (command.operands.empty() ? "" : ' ' + command.operands) + "\n\n" +
                     filled(command.summary + ". " + command.details, 0);
  if (!command.options.empty()) text += "\nOptions:\n" + optionRows(command.options);
  text += "\nOptions of every command:\n" + optionRows(commonOptions()) +
          "\nExamples, with the exit status in brackets if it is not 0:\n";
  for (const Example& example : command.examples) {
    text += "  $ " + example.line + '\n';
    if (example.printed.empty()) continue;
    text += "  ";
    for (const char c : example.printed) {
      text += c;
      if (c == '\n') text += "  ";
    }
    text += '\n';
  }
  return text;
}

}  // namespace tool
