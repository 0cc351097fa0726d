#pragma once

#include "controls/child_layout.h"

#include <QtQml/qqmlregistration.h>

#include <vector>

namespace tamberline {

/// How a LineLayout places a child.
class LineAttached : public QObject {
  Q_OBJECT
  QML_ANONYMOUS
  /// May become narrower than its implicit width, like a name.
  Q_PROPERTY(bool isElastic MEMBER isElastic NOTIFY changed)
  /// Begins the trailing group, to which everything after it belongs.
  Q_PROPERTY(bool isTrailing MEMBER isTrailing NOTIFY changed)
  /// Stands in the column before the text, on the first line.
  Q_PROPERTY(bool isLeading MEMBER isLeading NOTIFY changed)
  /// Stands in the column after the text, in the middle of all lines.
  Q_PROPERTY(bool isPinned MEMBER isPinned NOTIFY changed)
  /// Only shown between two other children of the same line.
  Q_PROPERTY(bool isSeparator MEMBER isSeparator NOTIFY changed)

public:
  explicit LineAttached(QObject* child);

  bool isElastic = false;
  bool isTrailing = false;
  bool isLeading = false;
  bool isPinned = false;
  bool isSeparator = false;

signals:
  void changed();
};

/// Places its children in one line if they fit, with the trailing group at the right edge.
/// Otherwise the trailing group moves to a line of its own as a whole, and every line begins at the
/// left edge of the text. Elastic children shrink to `minElasticWidth` before anything wraps, so
/// that a name stays visible beside any number of badges and at any font size. Every line leaves
/// out the column before the text, `indent` wide, and the one after it, `pinnedWidth` wide. The
/// children of a line are centred vertically. With `alignsBaselines` they share a baseline instead:
/// a child without one is centred on the first child that has one, and the layout's baseline is
/// that of its first line.
class LineLayout : public tamberline::ChildLayout {
  Q_OBJECT
  QML_ELEMENT
  QML_ATTACHED(tamberline::LineAttached)
  Q_PROPERTY(double lineSpacing MEMBER lineSpacing_ NOTIFY spacingChanged)
  Q_PROPERTY(double minElasticWidth MEMBER minElasticWidth_ NOTIFY spacingChanged)
  /// Includes the gap between the leading child and the text.
  Q_PROPERTY(double indent MEMBER indent_ NOTIFY spacingChanged)
  Q_PROPERTY(double pinnedWidth MEMBER pinnedWidth_ NOTIFY spacingChanged)
  Q_PROPERTY(bool alignsBaselines MEMBER alignsBaselines_ NOTIFY spacingChanged)

public:
  using ChildLayout::ChildLayout;

  static LineAttached* qmlAttachedProperties(QObject* child) { return new LineAttached(child); }

protected:
  void follow(QQuickItem* child) override;
  void place() override;

private:
  struct Part {
    QQuickItem* item = nullptr;
    double width = 0;
    bool isElastic = false;
    bool isTrailing = false;
    bool isSeparator = false;
  };
  using Line = std::vector<Part>;

  /// The visible children.
  struct Parts {
    Line text = {};
    std::vector<QQuickItem*> leading = {};
    std::vector<QQuickItem*> pinned = {};
  };

  Parts shownParts() const;
  double textWidth() const;
  double neededWidth(const Part& part) const;
  double neededWidth(const Line& line) const;
  double widthOf(const Line& line) const;
  double naturalWidth(const Parts& parts) const;
  std::vector<Line> breakIntoLines(const Line& text) const;
  static void showSeparators(const Line& text, std::vector<Line>& lines);
  void append(const Line& parts, std::vector<Line>& lines) const;
  void stretch(Line& line) const;
  void placeAcross(const Line& line, bool isOnlyLine) const;
  void placeLeading(const std::vector<QQuickItem*>& items) const;
  void placePinned(const std::vector<QQuickItem*>& items) const;
  double placeDown(const std::vector<QQuickItem*>& items, double top);
  double placeOnBaseline(const std::vector<QQuickItem*>& items, double top);

  double lineSpacing_ = 0;
  double minElasticWidth_ = 0;
  double indent_ = 0;
  double pinnedWidth_ = 0;
  bool alignsBaselines_ = false;
};

} // namespace tamberline
