// Every row has its text, bars and symbols on the same vertical lines.
#include "controls/line_layout.h"
#include "support/language_scope.h"
#include "ui/drawn_items.h"
#include "ui/panel_fixture.h"
#include "ui/samples.h"
#include "ui/visible_items.h"

#include <algorithm>

namespace tamberline {
namespace {

// In points from the left edge of the panel.
constexpr double cardEdge = 12;
constexpr double cardPadding = 12;
constexpr double rowInset = 6;
constexpr double leadingGap = 6;
constexpr double depthStep = 16;
constexpr double edgeTolerance = 0.5;

const LineAttached* attachedTo(QQuickItem* item) {
  return qobject_cast<LineAttached*>(
      qmlAttachedPropertiesObject<LineLayout>(item, /*create=*/false));
}

bool isTrailing(QQuickItem* item) {
  const LineAttached* attached = attachedTo(item);
  return attached != nullptr && attached->isTrailing;
}

bool isInColumns(QQuickItem* item) {
  const LineAttached* attached = attachedTo(item);
  return attached != nullptr && (attached->isLeading || attached->isPinned);
}

/// Those with columns beside their text.
void appendLines(const QQuickItem& part, std::vector<const LineLayout*>& lines) {
  for (const QQuickItem* child : part.childItems()) {
    const auto* line = qobject_cast<const LineLayout*>(child);
    if (line != nullptr && line->isVisible() && line->property("indent").toDouble() > 0) {
      lines.push_back(line);
    }
    appendLines(*child, lines);
  }
}

class Grid : public PanelFixture, public testing::WithParamInterface<SampleCase> {
protected:
  double symbolSize() { return context().theme()->symbolSize(); }
  double textEdge(int depth) {
    return cardEdge + cardPadding + rowInset + symbolSize() + leadingGap + depth * depthStep;
  }
  double rightEdge() {
    return PanelSize::width - cardEdge - cardPadding - context().theme()->chevronWidth();
  }

  int depthOf(int index) { return rows().index(index).data(PanelListModel::DepthRole).toInt(); }

  void checkBars(const QQuickItem& row, int depth) {
    for (const QQuickItem* bar : drawnItems(row, "TriBar")) {
      const QRectF place = placeInWindow(*bar);
      EXPECT_NEAR(place.left(), textEdge(depth), edgeTolerance);
      EXPECT_NEAR(place.right(), rightEdge(), edgeTolerance);
    }
  }

  /// The parts of the line that stand between its columns.
  static std::vector<QQuickItem*> textParts(const LineLayout& line) {
    std::vector<QQuickItem*> parts;
    for (QQuickItem* child : line.childItems()) {
      if (child->isVisible() && child->width() > 0 && child->opacity() > 0 && !isInColumns(child)) {
        parts.push_back(child);
      }
    }
    return parts;
  }

  void checkLine(const LineLayout& line, int depth) {
    const std::vector<QQuickItem*> parts = textParts(line);
    ASSERT_FALSE(parts.empty());
    double left = PanelSize::width;
    double right = 0;
    bool isOneLine = true;
    for (const QQuickItem* part : parts) {
      left = std::min(left, placeInWindow(*part).left());
      right = std::max(right, placeInWindow(*part).right());
      isOneLine = isOneLine && part->y() < parts.front()->y() + parts.front()->height();
    }
    EXPECT_NEAR(left, textEdge(depth), edgeTolerance);
    EXPECT_LE(right, rightEdge() + edgeTolerance);
    if (isOneLine && std::any_of(parts.begin(), parts.end(), isTrailing)) {
      EXPECT_NEAR(right, rightEdge(), 1) << "widths are whole points";
    }
  }

  void checkColumns(const LineLayout& line, int depth) {
    for (QQuickItem* child : line.childItems()) {
      if (!child->isVisible() || child->width() <= 0 || !isInColumns(child)) {
        continue;
      }
      const QRectF place = placeInWindow(*child);
      const double leadingCentre = textEdge(depth) - leadingGap - symbolSize() / 2;
      const double chevronCentre = rightEdge() + context().theme()->chevronWidth() / 2;
      const double centre = place.center().x();
      EXPECT_TRUE(std::abs(centre - leadingCentre) <= 1 || std::abs(centre - chevronCentre) <= 1)
          << "a symbol is at " << centre;
    }
  }

  void checkRow(int index) {
    SCOPED_TRACE(rows().index(index).data(PanelListModel::SentenceRole).toString().toStdString());
    if (rowItem(index) == nullptr) {
      QMetaObject::invokeMethod(listView(), "positionViewAtIndex", Q_ARG(int, index),
                                Q_ARG(int, 4)); // ListView.Contain
      settle();
    }
    const QQuickItem* row = rowItem(index);
    ASSERT_NE(row, nullptr);
    const int depth = depthOf(index);
    checkBars(*row, depth);
    std::vector<const LineLayout*> lines;
    appendLines(*row, lines);
    for (const LineLayout* line : lines) {
      checkLine(*line, depth);
      checkColumns(*line, depth);
    }
    lines_ += static_cast<int>(lines.size());
  }

  const LanguageScope language{GetParam().language};
  int lines_ = 0;
};

TEST_P(Grid, IsKeptByEveryRow) {
  useSample(GetParam().sample);
  for (const double scale : {1.0, 2.0}) {
    SCOPED_TRACE(scale);
    openPanel({.fontScale = scale, .isBoundByScreen = false});
    expandAll();
    for (int index = 0; index < rows().rowCount(); ++index) {
      checkRow(index);
    }
    EXPECT_GE(lines_, rows().rowCount() / 2);
    closePanel();
    scanner->expandedOverrideIDs.set({});
  }
}

INSTANTIATE_TEST_SUITE_P(Samples, Grid, testing::ValuesIn(allSampleCases()), nameOfSampleCase);

} // namespace
} // namespace tamberline
