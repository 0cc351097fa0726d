#include "answers/find_answers.h"

#include "answers/answer_list.h"
#include "answers/thunderbolt_answers.h"

#include <algorithm>

namespace tamberline {
namespace {

void findInTree(std::span<const TreeNode> nodes, AnswerList& answers) {
  for (const TreeNode& node : nodes) {
    findThunderboltAnswers(node, answers);
    findInTree(node.children, answers);
  }
}

} // namespace

std::vector<Answer> findAnswers(const AnswerInputs& inputs) {
  AnswerList list;
  findInTree(inputs.portTree, list);
  std::vector<Answer> answers = list.take();
  std::stable_partition(answers.begin(), answers.end(), [](const Answer& answer) {
    return answer.weight == AnswerWeight::attention;
  });
  return answers;
}

} // namespace tamberline
