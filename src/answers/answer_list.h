#pragma once

#include "answers/answer.h"
#include "answers/wording.h"
#include "tree/tree_node.h"

#include <span>
#include <vector>

namespace tamberline {

/// Collects answers and puts them in order.
class AnswerList {
public:
  /// `answer` is about `node`, which must outlive the list; its identifier and texts are still
  /// missing.
  void add(const TreeNode& node, Answer answer, const AnswerNames& names);

  /// Those that need attention first, then the notes, each in the order of the tree.
  std::vector<Answer> take(std::span<const TreeNode> tree);

private:
  struct Entry {
    const TreeNode* node = nullptr;
    Answer answer = {};
  };

  std::vector<Entry> entries_;
};

} // namespace tamberline
