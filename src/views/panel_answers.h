#pragma once

#include "answers/answer.h"
#include "views/shown_labels.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace tamberline {

/// What the answers of a scan say about one row: the mark that it shows, and what its popover says.
struct RowAnswer {
  Q_GADGET
  QML_VALUE_TYPE(rowAnswer)
  Q_PROPERTY(bool isShown MEMBER isShown CONSTANT)
  Q_PROPERTY(bool needsAttention MEMBER needsAttention CONSTANT)
  Q_PROPERTY(QString symbol READ symbolName CONSTANT)
  Q_PROPERTY(QString markName READ markName CONSTANT)
  Q_PROPERTY(QString title READ titleLabel CONSTANT)
  Q_PROPERTY(QString text READ fullText CONSTANT)

public:
  /// Whether the row shows a mark.
  bool isShown = false;
  bool needsAttention = false;
  /// Whether it is about rows inside of the row, which is closed.
  bool isAboutContent = false;
  std::string title = {};
  /// Reason and advice; a paragraph for each answer.
  std::string text = {};

  QString titleLabel() const { return shownLabel(title); }
  QString fullText() const;
  /// The mark's symbol, and its name for screen readers.
  QString symbolName() const;
  QString markName() const;

  friend bool operator==(const RowAnswer&, const RowAnswer&) = default;
};

/// The answers of a scan, by the rows that show them. Immutable.
class PanelAnswers {
public:
  explicit PanelAnswers(std::vector<Answer> answers);

  const std::vector<Answer>& all() const { return answers_; }
  bool empty() const { return answers_.empty(); }

  /// What a row shows. Null if nothing concerns it. A closed row also speaks for the rows in it
  /// that need attention.
  std::shared_ptr<const RowAnswer> of(const std::string& nodeID, bool isClosed) const;

private:
  using ByNode = std::unordered_map<std::string, std::shared_ptr<const RowAnswer>>;

  std::vector<Answer> answers_;
  ByNode ofNodes_;
  ByNode ofClosedNodes_; // those that contain nodes that need attention
};

/// One line of the strip above the cards.
struct AnswerLine {
  Q_GADGET
  QML_VALUE_TYPE(answerLine)
  Q_PROPERTY(QString nodeID READ shownNodeID CONSTANT)
  Q_PROPERTY(QString headline READ headlineLabel CONSTANT)
  Q_PROPERTY(QString text READ fullText CONSTANT)

public:
  std::string nodeID = {};
  std::string headline = {};
  std::string text = {};

  QString shownNodeID() const { return QString::fromStdString(nodeID); }
  QString headlineLabel() const { return shownLabel(headline); }
  QString fullText() const;

  friend bool operator==(const AnswerLine&, const AnswerLine&) = default;
};

/// The strip above the cards: the first answers that need attention, and how many more there are.
struct AnswerStrip {
  static constexpr std::size_t maxLines = 2;

  std::vector<AnswerLine> lines = {};
  /// Empty if all are shown.
  std::string more = {};
  /// The headlines of the others, a line each.
  std::string otherHeadlines = {};

  friend bool operator==(const AnswerStrip&, const AnswerStrip&) = default;
};

AnswerStrip answerStrip(const std::vector<Answer>& answers);

} // namespace tamberline
