#include "inspect/answer_text.h"

#include "inspect/text_tree.h"

namespace tamberline {
namespace {

TextTree treeOf(const Answer& answer) {
  const bool needsAttention = answer.weight == AnswerWeight::attention;
  const Color color = needsAttention ? Color::Orange : Color::Secondary;
  return {{{{needsAttention ? "! " : "· ", color}, {answer.headline, color, needsAttention}},
           {{answer.reason}},
           {{"→ " + answer.advice, Color::Secondary}}},
          {}};
}

} // namespace

std::string answerText(const std::vector<Answer>& answers, bool useColors,
                       std::optional<int> columns) {
  std::vector<TextTree> trees;
  trees.reserve(answers.size());
  for (const Answer& answer : answers) {
    trees.push_back(treeOf(answer));
  }
  return renderTextTrees(trees, useColors, columns);
}

} // namespace tamberline
