#include "model/LocalId.h"
#include "model/ShownText.h"
#include "text/ShortNumber.h"

#include <TrelvonUnits/FormulaExplanation.h>

#include <algorithm>
#include <cstddef>
#include <utility>

namespace Units {

namespace {

/// Deeper nodes are not indented any further, so that the text of a deep tree stays short.
constexpr std::size_t deepestIndent = 40;

std::string shownValue(const FormulaExplanation::Node& node) {
  std::string text = "= " + shortNumber(node.value());
  for (const auto& [typeId, power] : node.powers()) {
    text += ' ' + shownText(localIdOf(typeId));
    if (power != 1) text += '^' + shortNumber(power);
  }
  return text + (node.arePowersLeftOut() ? " ..." : "");
}

}  // namespace

std::string FormulaExplanation::toTree() const {
  const std::vector<Token> allTokens = tokens();
  const std::vector<Node> allNodes = nodes();
  std::string tree;
  std::vector<std::pair<std::size_t, std::size_t>> waiting;  // nodes and their depths
  if (!allNodes.empty()) waiting.emplace_back(allNodes.size() - 1, 0);
  while (!waiting.empty()) {
    const auto [index, depth] = waiting.back();
    waiting.pop_back();
    const Node& node = allNodes[index];
    const std::vector<std::size_t> operands = node.operands();
    for (auto operand = operands.rbegin(); operand != operands.rend(); ++operand)
      waiting.emplace_back(*operand, depth + 1);
    const bool isGroup = node.kind() == NodeKind::Parentheses;
    tree += std::string(2 * std::min(depth, deepestIndent) + 2, ' ') +
            (isGroup ? "( )" : shownText(allTokens[node.token()].text())) + "  " +
            (node.wasReached() ? shownValue(node) : "was not reached") + '\n';
  }
  return tree;
}

}  // namespace Units
