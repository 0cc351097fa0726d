#include "views/panel_answers.h"

#include "i18n/loc.h"
#include "tree/node_identifiers.h"

#include <utility>

namespace tamberline {
namespace {

// In characters: several answers can be about one row.
constexpr std::size_t maxAnswerLength = 1200;

std::string paragraphOf(const Answer& answer) {
  return answer.advice.empty() ? answer.reason : answer.reason + " " + answer.advice;
}

bool needsAttention(const Answer& answer) {
  return answer.weight == AnswerWeight::attention;
}

using Rows = std::unordered_map<std::string, RowAnswer>;

/// `isShown`: a row that an answer only concerns has no mark, since the mark is where it can be
/// solved.
void add(const Answer& answer, const std::string& nodeID, bool isShown, Rows& rows) {
  RowAnswer& row = rows[nodeID];
  row.isShown = row.isShown || isShown;
  row.needsAttention = row.needsAttention || (isShown && needsAttention(answer));
  if (row.title.empty()) {
    row.title = answer.headline;
  }
  row.text += (row.text.empty() ? "" : "\n") + paragraphOf(answer);
}

/// Closed rows show the headlines of what is in them.
void addToClosed(const Answer& answer, const std::string& nodeID, Rows& rows) {
  RowAnswer& row = rows[nodeID];
  row.isShown = true;
  row.needsAttention = true;
  row.isAboutContent = true;
  row.title = Loc::needsAttention();
  row.text += (row.text.empty() ? "" : "\n") + answer.headline;
}

std::unordered_map<std::string, std::shared_ptr<const RowAnswer>> shared(Rows&& rows) {
  std::unordered_map<std::string, std::shared_ptr<const RowAnswer>> result;
  for (auto& [nodeID, row] : rows) {
    result.emplace(nodeID, std::make_shared<const RowAnswer>(std::move(row)));
  }
  return result;
}

} // namespace

QString RowAnswer::fullText() const {
  return shownParagraphs(text, maxAnswerLength);
}

QString RowAnswer::symbolName() const {
  return shownSymbol(needsAttention ? "exclamationmark.triangle" : "info.circle");
}

QString RowAnswer::markName() const {
  if (isAboutContent) {
    return titleLabel();
  }
  return shownLabel(std::string(needsAttention ? Loc::needsAttention() : Loc::note()) + ": " +
                    title);
}

QString AnswerLine::fullText() const {
  return shownParagraphs(text, maxAnswerLength);
}

PanelAnswers::PanelAnswers(std::vector<Answer> answers) : answers_(std::move(answers)) {
  Rows rows;
  Rows closedRows;
  for (const Answer& answer : answers_) {
    add(answer, answer.nodeID, /*isShown=*/true, rows);
    for (const std::string& nodeID : answer.otherNodeIDs) {
      add(answer, nodeID, /*isShown=*/false, rows);
    }
    if (needsAttention(answer)) {
      for (const std::string& nodeID : ancestorIDs(answer.nodeID)) {
        addToClosed(answer, nodeID, closedRows);
      }
    }
  }
  ofNodes_ = shared(std::move(rows));
  ofClosedNodes_ = shared(std::move(closedRows));
}

std::shared_ptr<const RowAnswer> PanelAnswers::of(const std::string& nodeID, bool isClosed) const {
  const auto own = ofNodes_.find(nodeID);
  const bool hasOwnMark = own != ofNodes_.end() && own->second->isShown;
  if (isClosed && !hasOwnMark) {
    if (const auto closed = ofClosedNodes_.find(nodeID); closed != ofClosedNodes_.end()) {
      return closed->second;
    }
  }
  return own == ofNodes_.end() ? nullptr : own->second;
}

AnswerStrip answerStrip(const std::vector<Answer>& answers) {
  AnswerStrip strip;
  std::int64_t others = 0;
  for (const Answer& answer : answers) {
    if (!needsAttention(answer)) {
      continue;
    }
    if (strip.lines.size() < AnswerStrip::maxLines) {
      strip.lines.push_back({answer.nodeID, answer.headline, paragraphOf(answer)});
    } else {
      strip.otherHeadlines += (others == 0 ? "" : "\n") + answer.headline;
      ++others;
    }
  }
  if (others > 0) {
    strip.more = Loc::moreAnswers(others);
  }
  return strip;
}

} // namespace tamberline
