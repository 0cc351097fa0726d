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
  /// Aligned to the right end of its line, together with everything after it.
  Q_PROPERTY(bool isTrailing MEMBER isTrailing NOTIFY changed)
  /// Stays at the right end of the first line even if other children wrap.
  Q_PROPERTY(bool isPinned MEMBER isPinned NOTIFY changed)

public:
  explicit LineAttached(QObject* child);

  bool isElastic = false;
  bool isTrailing = false;
  bool isPinned = false;

signals:
  void changed();
};

/// Places its children in one line if they fit, otherwise in several. Elastic children shrink to
/// `minElasticWidth` before anything wraps, so that a name stays visible beside any number of
/// badges and at any font size. The children of a line are centred vertically. With
/// `alignsBaselines` they share a baseline instead: a child without one is centred on the first
/// child that has one, and the layout's baseline is that of its first line.
class LineLayout : public tamberline::ChildLayout {
  Q_OBJECT
  QML_ELEMENT
  QML_ATTACHED(tamberline::LineAttached)
  Q_PROPERTY(double lineSpacing MEMBER lineSpacing_ NOTIFY spacingChanged)
  Q_PROPERTY(double minElasticWidth MEMBER minElasticWidth_ NOTIFY spacingChanged)
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
    bool isPinned = false;
  };
  using Line = std::vector<Part>;

  std::vector<Part> shownParts() const;
  double neededWidth(const Part& part) const;
  double widthOf(const Line& line) const;
  std::vector<Line> breakIntoLines(const std::vector<Part>& parts, double pinnedWidth) const;
  void stretch(Line& line, double available) const;
  void placeAcross(const Line& line, double available) const;
  double placeDown(const Line& line, double top);
  double placeOnBaseline(const Line& line, double top);
  double naturalWidth(const std::vector<Part>& parts) const;

  double lineSpacing_ = 0;
  double minElasticWidth_ = 0;
  bool alignsBaselines_ = false;
};

} // namespace tamberline
