#pragma once

#include "answers/answer_list.h"
#include "tree/tree_node.h"

#include <span>

namespace tamberline {

/// Where several fast drives share a link that cannot serve all of them at once.
void findSharedLinks(std::span<const TreeNode> tree, AnswerList& answers);

} // namespace tamberline
