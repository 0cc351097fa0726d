#include "answers/find_answers.h"

#include "answers/answer_list.h"
#include "answers/port_answers.h"
#include "answers/power_answers.h"
#include "answers/shared_links.h"
#include "answers/thunderbolt_answers.h"
#include "answers/usb_answers.h"

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
  findUSBSpeedAnswers(inputs, list);
  findSharedLinks(inputs.portTree, list);
  findPortAnswers(inputs, list);
  findPowerAnswers(inputs, list);
  return list.take(inputs.portTree);
}

} // namespace tamberline
