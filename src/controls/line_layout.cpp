#include "controls/line_layout.h"

#include <QQmlInfo>

#include <algorithm>
#include <cmath>
#include <numeric>
#include <utility>

namespace tamberline {

LineAttached::LineAttached(QObject* child) : QObject(child) {
  connect(this, &LineAttached::changed, this, [item = qobject_cast<QQuickItem*>(child)] {
    if (auto* layout = qobject_cast<LineLayout*>(item == nullptr ? nullptr : item->parentItem())) {
      layout->layOut();
    }
  });
}

void LineLayout::follow(QQuickItem* child) {
  connect(child, &QQuickItem::implicitWidthChanged, this, &LineLayout::layOut);
  connect(child, &QQuickItem::implicitHeightChanged, this, &LineLayout::layOut);
  connect(child, &QQuickItem::visibleChanged, this, &LineLayout::layOut);
  connect(child, &QQuickItem::baselineOffsetChanged, this, &LineLayout::layOut);
}

void LineLayout::place() {
  const std::vector<Part> parts = shownParts();
  setImplicitWidth(naturalWidth(parts));
  Line pinned;
  std::copy_if(parts.begin(), parts.end(), std::back_inserter(pinned),
               [](const Part& part) { return part.isPinned; });
  const double pinnedWidth = pinned.empty() ? 0 : widthOf(pinned) + spacing();
  double top = 0;
  bool isFirst = true;
  double available = width() - pinnedWidth;
  for (Line& line : breakIntoLines(parts, pinnedWidth)) {
    stretch(line, available);
    if (std::exchange(isFirst, false)) {
      line.insert(line.end(), pinned.begin(), pinned.end());
    }
    placeAcross(line, width());
    top += placeDown(line, top) + lineSpacing_;
    available = width();
  }
  setImplicitHeight(std::max(0.0, top - lineSpacing_));
}

std::vector<LineLayout::Part> LineLayout::shownParts() const {
  std::vector<Part> parts;
  bool isTrailing = false;
  for (QQuickItem* child : childItems()) {
    if (!child->isVisible() || child->implicitWidth() <= 0) {
      continue;
    }
    Part part{.item = child, .width = std::ceil(child->implicitWidth())};
    if (const auto* attached = qobject_cast<LineAttached*>(
            qmlAttachedPropertiesObject<LineLayout>(child, /*create=*/false))) {
      part.isElastic = attached->isElastic;
      isTrailing = isTrailing || attached->isTrailing;
      part.isPinned = attached->isPinned;
    }
    part.isTrailing = isTrailing || part.isPinned;
    parts.push_back(part);
  }
  return parts;
}

double LineLayout::neededWidth(const Part& part) const {
  return part.isElastic ? std::min(part.width, minElasticWidth_) : part.width;
}

double LineLayout::widthOf(const Line& line) const {
  return std::accumulate(line.begin(), line.end(), -spacing(), [&](double sum, const Part& part) {
    return sum + part.width + spacing();
  });
}

double LineLayout::naturalWidth(const std::vector<Part>& parts) const {
  return parts.empty() ? 0 : widthOf(parts);
}

std::vector<LineLayout::Line> LineLayout::breakIntoLines(const std::vector<Part>& parts,
                                                         double pinnedWidth) const {
  std::vector<Line> lines(1);
  double left = width() - pinnedWidth;
  for (const Part& part : parts) {
    if (part.isPinned) {
      continue;
    }
    const double gap = lines.back().empty() ? 0 : spacing();
    if (gap + neededWidth(part) > left && !lines.back().empty()) {
      lines.emplace_back();
      left = width();
    } else {
      left -= gap;
    }
    lines.back().push_back(part);
    left -= neededWidth(part);
  }
  return lines;
}

/// Gives elastic parts the width that the others leave, and limits each part to the available
/// width.
void LineLayout::stretch(Line& line, double available) const {
  double left = available + spacing();
  for (const Part& part : line) {
    left -= (part.isElastic ? 0 : part.width) + spacing();
  }
  for (Part& part : line) {
    if (part.isElastic) {
      part.width = std::clamp(left, std::min(part.width, neededWidth(part)), part.width);
      left -= part.width;
    }
    part.width = std::min(part.width, std::max(0.0, available));
  }
}

void LineLayout::placeAcross(const Line& line, double available) const {
  double left = 0;
  const double slack = std::max(0.0, available - widthOf(line));
  for (const Part& part : line) {
    part.item->setWidth(part.width);
    part.item->setX(part.isTrailing ? left + slack : left);
    left += part.width + spacing();
  }
}

/// Returns the height of the line.
double LineLayout::placeDown(const Line& line, double top) {
  if (alignsBaselines_) {
    return placeOnBaseline(line, top);
  }
  double height = 0;
  for (const Part& part : line) {
    height = std::max(height, part.item->implicitHeight());
  }
  for (const Part& part : line) {
    part.item->setY(top + std::round((height - part.item->implicitHeight()) / 2));
  }
  return height;
}

/// Returns the height of the line. The baseline is just low enough that nothing reaches above the
/// line, in whole points, so that letters are drawn on whole pixels.
double LineLayout::placeOnBaseline(const Line& line, double top) {
  const auto first = std::find_if(line.begin(), line.end(),
                                  [](const Part& part) { return part.item->baselineOffset() > 0; });
  const double centre =
      first == line.end() ? 0 : first->item->implicitHeight() / 2 - first->item->baselineOffset();
  const auto ascent = [centre](const Part& part) {
    const double offset = part.item->baselineOffset();
    return offset > 0 ? offset : part.item->implicitHeight() / 2 - centre;
  };
  double baseline = 0;
  for (const Part& part : line) {
    baseline = std::max(baseline, std::ceil(ascent(part)));
  }
  double height = 0;
  for (const Part& part : line) {
    const double y = baseline - ascent(part);
    part.item->setY(top + (part.item->baselineOffset() > 0 ? y : std::round(y)));
    height = std::max(height, std::ceil(y + part.item->implicitHeight()));
  }
  if (top == 0) {
    setBaselineOffset(baseline);
  }
  return height;
}

} // namespace tamberline
