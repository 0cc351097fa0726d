#include "answers/answer.h"

namespace tamberline {

std::unordered_map<std::string_view, const Answer*>
answersByNode(const std::vector<Answer>& answers) {
  std::unordered_map<std::string_view, const Answer*> byNode;
  for (const Answer& answer : answers) {
    byNode.emplace(answer.nodeID, &answer);
    for (const std::string& other : answer.otherNodeIDs) {
      byNode.emplace(other, &answer);
    }
  }
  return byNode;
}

std::string_view nameOf(AnswerKind kind) {
  switch (kind) {
  case AnswerKind::slowConnection:
    return "slowConnection";
  case AnswerKind::slowHub:
    return "slowHub";
  case AnswerKind::slowPort:
    return "slowPort";
  case AnswerKind::unknownAbility:
    return "unknownAbility";
  case AnswerKind::sharedLink:
    return "sharedLink";
  case AnswerKind::slowThunderboltLink:
    return "slowThunderboltLink";
  case AnswerKind::notAuthorized:
    return "notAuthorized";
  case AnswerKind::blocked:
    return "blocked";
  case AnswerKind::silentDevice:
    return "silentDevice";
  case AnswerKind::powerWithoutData:
    return "powerWithoutData";
  case AnswerKind::overloadedPort:
    return "overloadedPort";
  case AnswerKind::notCharging:
    return "notCharging";
  case AnswerKind::draining:
    return "draining";
  case AnswerKind::weakAdapter:
    return "weakAdapter";
  case AnswerKind::weakPowerCable:
    return "weakPowerCable";
  case AnswerKind::linkIsTheLimit:
    return "linkIsTheLimit";
  case AnswerKind::driveIsTheLimit:
    return "driveIsTheLimit";
  case AnswerKind::impossibleFigure:
    return "impossibleFigure";
  }
  return "";
}

std::string_view nameOf(AnswerWeight weight) {
  return weight == AnswerWeight::attention ? "attention" : "note";
}

std::string_view nameOf(LimitingPart part) {
  switch (part) {
  case LimitingPart::none:
    return "none";
  case LimitingPart::node:
    return "node";
  case LimitingPart::connection:
    return "connection";
  case LimitingPart::cable:
    return "cable";
  case LimitingPart::nodeOrConnection:
    return "nodeOrConnection";
  }
  return "";
}

} // namespace tamberline
