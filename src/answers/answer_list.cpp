#include "answers/answer_list.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <unordered_map>
#include <utility>

namespace tamberline {
namespace {

using Positions = std::unordered_map<const TreeNode*, std::size_t>;

void number(std::span<const TreeNode> nodes, Positions& positions) {
  for (const TreeNode& node : nodes) {
    positions.emplace(&node, positions.size());
    number(node.children, positions);
  }
}

} // namespace

void AnswerList::add(const TreeNode& node, Answer answer, const AnswerNames& names) {
  answer.nodeID = node.id;
  word(answer, names);
  entries_.push_back({&node, std::move(answer)});
}

std::vector<Answer> AnswerList::take(std::span<const TreeNode> tree) {
  if (entries_.empty()) {
    return {};
  }
  Positions positions;
  number(tree, positions);
  std::stable_sort(entries_.begin(), entries_.end(), [&](const Entry& left, const Entry& right) {
    if (left.answer.weight != right.answer.weight) {
      return left.answer.weight < right.answer.weight;
    }
    return positions.at(left.node) < positions.at(right.node);
  });
  std::vector<Answer> answers;
  std::transform(entries_.begin(), entries_.end(), std::back_inserter(answers),
                 [](Entry& entry) { return std::move(entry.answer); });
  entries_.clear();
  return answers;
}

} // namespace tamberline
