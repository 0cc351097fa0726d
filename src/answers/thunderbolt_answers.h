#pragma once

#include "answers/answer_list.h"
#include "tree/tree_node.h"

namespace tamberline {

/// What is wrong with a Thunderbolt or USB4 device's link or permission.
void findThunderboltAnswers(const TreeNode& node, AnswerList& answers);

} // namespace tamberline
