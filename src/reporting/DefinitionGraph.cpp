#include "reporting/DefinitionGraph.h"

#include <algorithm>

namespace Schemas {

namespace {

constexpr std::size_t none = static_cast<std::size_t>(-1);

/// Tarjan's algorithm, with an explicit stack. A node's group is identified by the number of one
/// node in it.
class Groups {
 public:
  explicit Groups(const DefinitionGraph& graph)
      : graph_(graph),
        of(graph.needs.size(), none),
        order_(graph.needs.size(), none),
        low_(graph.needs.size()) {
    for (std::size_t node = 0; node < of.size(); ++node)
      if (order_[node] == none) search(node);
  }

 private:
  struct Step {
    std::size_t node;
    std::size_t next;
  };

  void search(std::size_t root) {
    enter(root);
    while (!path_.empty()) {
      auto& [node, next] = path_.back();
      if (next == graph_.needs[node].size()) {
        leave();
        continue;
      }
      const std::size_t needed = graph_.needs[node][next++];
      if (order_[needed] == none)
        enter(needed);
      else if (of[needed] == none)
        low_[node] = std::min(low_[node], order_[needed]);
    }
  }

  void enter(std::size_t node) {
    order_[node] = low_[node] = entered_++;
    open_.push_back(node);
    path_.push_back({node, 0});
  }

  void leave() {
    const std::size_t node = path_.back().node;
    path_.pop_back();
    if (!path_.empty()) low_[path_.back().node] = std::min(low_[path_.back().node], low_[node]);
    if (low_[node] != order_[node]) return;
    std::size_t member;
    do {
      member = open_.back();
      open_.pop_back();
      of[member] = node;
    } while (member != node);
  }

  const DefinitionGraph& graph_;

 public:
  std::vector<std::size_t> of;

 private:
  std::vector<std::size_t> order_, low_, open_;
  std::vector<Step> path_;
  std::size_t entered_ = 0;
};

/// Whether a node is on a circle: it shares its group, or needs itself.
std::vector<bool> findCircular(const DefinitionGraph& graph, const Groups& groups) {
  std::vector<bool> isCircular(graph.needs.size());
  for (std::size_t node = 0; node < graph.needs.size(); ++node)
    for (const std::size_t needed : graph.needs[node])
      if (groups.of[needed] == groups.of[node]) isCircular[node] = true;
  return isCircular;
}

/// A shortest circle through a node, found breadth first within its group.
Circle circleThrough(std::size_t start, const DefinitionGraph& graph, const Groups& groups,
                     std::vector<std::size_t>& neededBy) {
  std::vector<std::size_t> waiting = {start};
  for (std::size_t next = 0;; ++next)
    for (const std::size_t needed : graph.needs[waiting[next]]) {
      if (groups.of[needed] != groups.of[start] || neededBy[needed] != none) continue;
      neededBy[needed] = waiting[next];
      waiting.push_back(needed);
      if (needed != start) continue;
      Circle circle;
      do {
        circle.push_back(neededBy[circle.empty() ? start : circle.back()]);
      } while (circle.back() != start);
      std::reverse(circle.begin(), circle.end());
      return circle;
    }
}

/// One circle from each group of definitions that lead to each other: a shortest one through its
/// first definition.
std::vector<Circle> findFirstCircles(const DefinitionGraph& graph) {
  const Groups groups(graph);
  const std::vector<bool> isCircular = findCircular(graph, groups);
  std::vector<bool> isDone(graph.needs.size());
  std::vector<std::size_t> neededBy(graph.needs.size(), none);
  std::vector<Circle> circles;
  for (std::size_t node = 0; node < graph.needs.size(); ++node) {
    if (!isCircular[node] || isDone[groups.of[node]]) continue;
    isDone[groups.of[node]] = true;
    circles.push_back(circleThrough(node, graph, groups, neededBy));
  }
  return circles;
}

}  // namespace

std::vector<LeaveOut> findWhatToLeaveOut(const DefinitionGraph& graph) {
  const std::size_t count = graph.needs.size();
  std::vector<std::vector<std::size_t>> users(count);
  for (std::size_t node = 0; node < count; ++node)
    for (const std::size_t needed : graph.needs[node]) users[needed].push_back(node);

  const std::vector<bool> isCircular = findCircular(graph, Groups(graph));
  std::vector<LeaveOut> result(count);
  std::vector<std::size_t> waiting;
  for (std::size_t node = 0; node < count; ++node) {
    if (!graph.isFaulty[node] && !isCircular[node]) continue;
    result[node].reason =
        graph.isFaulty[node] ? LeaveOut::Reason::Faulty : LeaveOut::Reason::InCircle;
    waiting.push_back(node);
  }
  for (std::size_t next = 0; next < waiting.size(); ++next)
    for (const std::size_t user : users[waiting[next]]) {
      if (result[user].reason != LeaveOut::Reason::Kept) continue;
      result[user] = {LeaveOut::Reason::NeedsLeftOut, waiting[next]};
      waiting.push_back(user);
    }
  return result;
}

std::vector<Circle> findCircles(DefinitionGraph graph) {
  constexpr int mostOfAGroup = 8;  // tuning
  std::vector<Circle> circles;
  for (int round = 0; round < mostOfAGroup; ++round) {
    const std::vector<Circle> found = findFirstCircles(graph);
    for (const Circle& circle : found) {
      auto& needs = graph.needs[circle.back()];
      needs.erase(std::remove(needs.begin(), needs.end(), circle.front()), needs.end());
      circles.push_back(circle);
    }
    if (found.empty()) break;
  }
  return circles;
}

}  // namespace Schemas
