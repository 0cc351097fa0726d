#pragma once

#include "controls/child_layout.h"

#include <QtQml/qqmlregistration.h>

#include <vector>

namespace tamberline {

/// How a child of a LineLayout takes part in it.
class LineAttached : public QObject {
  Q_OBJECT
  QML_ANONYMOUS
  /// May become narrower than it wants to be: a name.
  Q_PROPERTY(bool isElastic MEMBER isElastic NOTIFY changed)
  /// Stands at the right end of its line, with everything after it.
  Q_PROPERTY(bool isTrailing MEMBER isTrailing NOTIFY changed)
  /// Stands at the right end of the first line, whatever else wraps.
  Q_PROPERTY(bool isPinned MEMBER isPinned NOTIFY changed)

public:
  explicit LineAttached(QObject* child);

  bool isElastic = false;
  bool isTrailing = false;
  bool isPinned = false;

signals:
  void changed();
};

/// Children side by side in one line, as long as they fit; then in several. An elastic child makes
/// room for the others, down to `minElasticWidth`, before anything wraps, so that a name stays in
/// sight beside any number of badges and at any size of the font. The children of a line are
/// centred vertically, or stand on one baseline where `alignsBaselines` is set; a child without a
/// baseline is then centred on the first that has one. The layout's own baseline is that of its
/// first line.
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
