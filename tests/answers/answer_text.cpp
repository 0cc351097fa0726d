#include "answers/answer_text.h"

namespace tamberline {
namespace {

std::string lineOf(const Answer& answer) {
  std::string line(nameOf(answer.weight));
  line.append(" ").append(nameOf(answer.kind)).append(" ").append(answer.nodeID);
  if (answer.limitingPart != LimitingPart::none) {
    line.append(": ").append(nameOf(answer.limitingPart));
    line.append(answer.limitingNodeID == answer.nodeID ? "" : " " + answer.limitingNodeID);
  }
  for (const std::string& other : answer.otherNodeIDs) {
    line.append(", also ").append(other);
  }
  return line + "\n";
}

} // namespace

std::string answersText(const std::vector<Answer>& answers) {
  std::string text;
  for (const Answer& answer : answers) {
    text += lineOf(answer);
  }
  return text.empty() ? "none\n" : text;
}

} // namespace tamberline
