#include "inspect/document_parts.h"

#include <string>
#include <string_view>
#include <unordered_map>

namespace tamberline {
namespace {

Document describe(const AnswerFacts& facts) {
  return {
      {"actualGbps", orNull(facts.actualGbps)},
      {"possibleGbps", orNull(facts.possibleGbps)},
      {"actualWatts", orNull(facts.actualWatts)},
      {"possibleWatts", orNull(facts.possibleWatts)},
      {"measuredMBps", orNull(facts.measuredMBps)},
      {"linkMBps", orNull(facts.linkMBps)},
      {"chargePercent", orNull(facts.chargePercent)},
      {"count", orNull(facts.count)},
  };
}

using AnswersByNode = std::unordered_map<std::string_view, const Answer*>;

Document shortAnswer(const AnswersByNode& answers, const Document& id) {
  const auto found = answers.find(id.get_ref<const std::string&>());
  if (found == answers.end()) {
    return nullptr;
  }
  const Answer& answer = *found->second;
  return {{"kind", nameOf(answer.kind)},
          {"weight", nameOf(answer.weight)},
          {"headline", answer.headline}};
}

void addToRows(const AnswersByNode& answers, Document& rows) {
  for (Document& row : rows) {
    row["answer"] = shortAnswer(answers, row["id"]);
    addToRows(answers, row["children"]);
  }
}

} // namespace

Document describe(const Answer& answer) {
  return {
      {"kind", nameOf(answer.kind)},
      {"weight", nameOf(answer.weight)},
      {"nodeId", answer.nodeID},
      {"limitingNodeId",
       answer.limitingNodeID.empty() ? Document(nullptr) : Document(answer.limitingNodeID)},
      {"limitingPart", nameOf(answer.limitingPart)},
      {"otherNodeIds", answer.otherNodeIDs},
      {"facts", describe(answer.facts)},
      {"headline", answer.headline},
      {"reason", answer.reason},
      {"advice", answer.advice},
  };
}

void addAnswersToRows(const std::vector<Answer>& answers, Document& panel) {
  const AnswersByNode byNode = answersByNode(answers);
  for (Document& card : panel["cards"]) {
    if (card.contains("rows")) {
      addToRows(byNode, card["rows"]);
    }
  }
}

} // namespace tamberline
