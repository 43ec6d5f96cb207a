#include "tools/trelvon/Context.h"
#include "tools/trelvon/Lookup.h"
#include "tools/trelvon/Run.h"
#include "tools/trelvon/ShownText.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace tool {

namespace {

/// Deeper nodes are not indented any further, so that the text of a deep tree stays short.
constexpr std::size_t deepestIndent = 40;

std::string unitsOf(const Units::FormulaExplanation::Node& node) {
  std::string text;
  for (const auto& [typeId, power] : node.powers()) {
    text += ' ' + shown(localIdOf(typeId));
    if (power != 1.0) text += '^' + shortestText(power);
  }
  return text;
}

/// A line for each node of the tree, operands indented below their operator.
void writeTree(Output& out, const Units::FormulaExplanation& explanation) {
  const auto tokens = explanation.tokens();
  const auto nodes = explanation.nodes();
  std::vector<std::pair<std::size_t, std::size_t>> waiting;  // nodes and their depths
  if (!nodes.empty()) waiting.emplace_back(nodes.size() - 1, 0);
  while (!waiting.empty()) {
    const auto [index, depth] = waiting.back();
    waiting.pop_back();
    const auto& node = nodes[index];
    const auto operands = node.operands();
    for (auto operand = operands.rbegin(); operand != operands.rend(); ++operand)
      waiting.emplace_back(*operand, depth + 1);
    const bool isGroup = node.kind() == Units::FormulaExplanation::NodeKind::Parentheses;
    out.write(std::string(2 * std::min(depth, deepestIndent) + 2, ' ') +
              (isGroup ? "( )" : shown(tokens[node.token()].text())) +
              (node.wasReached() ? "  = " + shortestText(node.value()) + unitsOf(node)
                                 : "  was not reached") +
              '\n');
  }
}

/// The text of an explanation, with colors where a terminal shows it.
void writeText(Output& out, const std::string& text) {
  for (std::size_t begin = 0; begin < text.size();) {
    const std::size_t end = std::min(text.find('\n', begin), text.size());
    const std::string line = text.substr(begin, end - begin);
    const auto startsWith = [&](std::string_view start) {
      return line.compare(0, start.size(), start) == 0;
    };
    const bool isMark = line.find_first_not_of(" ^~") == std::string::npos && !line.empty();
    out.write(isMark                    ? out.tinted(line, Tint::Mark)
              : startsWith("error: ")   ? out.tinted(line, Tint::Error)
              : startsWith("warning: ") ? out.tinted(line, Tint::Warning)
              : startsWith("  write: ") ? out.tinted(line, Tint::Advice)
                                        : line);
    out.write("\n");
    begin = end + 1;
  }
}

}  // namespace

Status runExplain(Context& context) {
  const Arguments& arguments = context.arguments;
  const std::string& formula = arguments.operands[0];
  const auto hidden = Units::HiddenVariables::Ask;
  const VariableResolver variables = context.variables();
  const Units::UnitsEngine& engine = context.definitions.engine();
  const Units::FormulaExplanation explanation =
      arguments.has("to") ? explainFormula(engine, context.unit(arguments.text("to")).getTypeId(),
                                           formula, variables, hidden)
                          : explainFormula(engine, formula, variables, hidden);
  if (context.wantsJson()) {
    context.out.write(explanation.toJson() + '\n');
  } else {
    writeText(context.out, explanation.toText());
    writeTree(context.out, explanation);
  }
  return explanation.reason() == Units::FormulaReason::Done ? Status::Done : Status::Findings;
}

}  // namespace tool
