#include "controls/line_layout.h"

#include <QQmlInfo>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace tamberline {
namespace {

constexpr double leadingGap = 6; // between a leading child and the text

/// The line from its first part that is no separator to its last one.
template <typename Part>
std::vector<Part> withoutOuterSeparators(const std::vector<Part>& line) {
  const auto isText = [](const Part& part) { return !part.isSeparator; };
  const auto first = std::find_if(line.begin(), line.end(), isText);
  const auto last = std::find_if(line.rbegin(), line.rend(), isText).base();
  return first < last ? std::vector<Part>(first, last) : std::vector<Part>();
}

} // namespace

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
  const Parts parts = shownParts();
  setImplicitWidth(naturalWidth(parts));
  std::vector<Line> lines = breakIntoLines(parts.text);
  showSeparators(parts.text, lines);
  if (lines.empty()) {
    lines.emplace_back(); // for a leading child alone
  }
  double top = 0;
  for (Line& line : lines) {
    stretch(line);
    placeAcross(line, lines.size() == 1);
    std::vector<QQuickItem*> items = &line == &lines.front() ? parts.leading : decltype(items)();
    for (const Part& part : line) {
      items.push_back(part.item);
    }
    top += placeDown(items, top) + lineSpacing_;
  }
  placeLeading(parts.leading);
  setImplicitHeight(std::max(0.0, top - lineSpacing_));
  placePinned(parts.pinned);
}

LineLayout::Parts LineLayout::shownParts() const {
  Parts parts;
  bool isTrailing = false;
  for (QQuickItem* child : childItems()) {
    if (!child->isVisible() || child->implicitWidth() <= 0) {
      continue;
    }
    Part part{.item = child, .width = std::ceil(child->implicitWidth())};
    const auto* attached = qobject_cast<LineAttached*>(
        qmlAttachedPropertiesObject<LineLayout>(child, /*create=*/false));
    if (attached != nullptr && (attached->isLeading || attached->isPinned)) {
      (attached->isLeading ? parts.leading : parts.pinned).push_back(child);
      continue;
    }
    if (attached != nullptr) {
      part.isElastic = attached->isElastic;
      part.isSeparator = attached->isSeparator;
      isTrailing = isTrailing || attached->isTrailing;
    }
    part.isTrailing = isTrailing;
    parts.text.push_back(part);
  }
  return parts;
}

double LineLayout::textWidth() const {
  return std::max(0.0, width() - indent_ - pinnedWidth_);
}

double LineLayout::neededWidth(const Part& part) const {
  return part.isElastic ? std::min(part.width, minElasticWidth_) : part.width;
}

double LineLayout::neededWidth(const Line& line) const {
  return std::accumulate(line.begin(), line.end(), -spacing(), [&](double sum, const Part& part) {
    return sum + neededWidth(part) + spacing();
  });
}

double LineLayout::widthOf(const Line& line) const {
  return std::accumulate(line.begin(), line.end(), -spacing(), [&](double sum, const Part& part) {
    return sum + part.width + spacing();
  });
}

double LineLayout::naturalWidth(const Parts& parts) const {
  const bool isEmpty = parts.text.empty() && parts.leading.empty() && parts.pinned.empty();
  return isEmpty ? 0 : indent_ + std::max(0.0, widthOf(parts.text)) + pinnedWidth_;
}

/// Trailing children can stand beside others that wrapped. Not beside figures with separators,
/// where they would read as part of the last figure.
std::vector<LineLayout::Line> LineLayout::breakIntoLines(const Line& text) const {
  if (text.empty()) {
    return {};
  }
  if (neededWidth(text) <= textWidth()) {
    return {text};
  }
  const auto trailing =
      std::find_if(text.begin(), text.end(), [](const Part& part) { return part.isTrailing; });
  std::vector<Line> lines;
  append({text.begin(), trailing}, lines);
  const Line group(trailing, text.end());
  const bool hasSeparators =
      std::any_of(text.begin(), text.end(), [](const Part& part) { return part.isSeparator; });
  const bool isBesideWrapped =
      lines.size() > 1 && !hasSeparators &&
      neededWidth(lines.back()) + spacing() + neededWidth(group) <= textWidth();
  if (!group.empty() && !isBesideWrapped) {
    lines.emplace_back();
  }
  append(group, lines);
  return lines;
}

/// A separator that is left out keeps its place invisibly, since it is shown again at another
/// width.
void LineLayout::showSeparators(const Line& text, std::vector<Line>& lines) {
  for (const Part& part : text) {
    if (part.isSeparator) {
      part.item->setOpacity(0);
    }
  }
  for (Line& line : lines) {
    line = withoutOuterSeparators(line);
    for (const Part& part : line) {
      if (part.isSeparator) {
        part.item->setOpacity(1);
      }
    }
  }
}

/// Adds the parts to the last line and, when that is full, to new ones.
void LineLayout::append(const Line& parts, std::vector<Line>& lines) const {
  for (const Part& part : parts) {
    const bool fits = !lines.empty() &&
                      (lines.back().empty() ||
                       neededWidth(lines.back()) + spacing() + neededWidth(part) <= textWidth());
    if (!fits) {
      lines.emplace_back();
    }
    lines.back().push_back(part);
  }
}

/// Gives elastic parts the width that the others leave, and limits each part to the available
/// width.
void LineLayout::stretch(Line& line) const {
  double left = textWidth() + spacing();
  for (const Part& part : line) {
    left -= (part.isElastic ? 0 : part.width) + spacing();
  }
  for (Part& part : line) {
    if (part.isElastic) {
      part.width = std::clamp(left, std::min(part.width, neededWidth(part)), part.width);
      left -= part.width;
    }
    part.width = std::min(part.width, textWidth());
  }
}

/// Only a line that holds everything has a right edge; several lines share the left one.
void LineLayout::placeAcross(const Line& line, bool isOnlyLine) const {
  double left = indent_;
  const double slack = isOnlyLine ? std::max(0.0, textWidth() - widthOf(line)) : 0;
  for (const Part& part : line) {
    part.item->setWidth(part.width);
    part.item->setX(part.isTrailing ? left + slack : left);
    left += part.width + spacing();
  }
}

/// In the middle of the column before the text.
void LineLayout::placeLeading(const std::vector<QQuickItem*>& items) const {
  const double column = std::max(0.0, indent_ - leadingGap);
  for (QQuickItem* item : items) {
    item->setWidth(item->implicitWidth());
    item->setX(std::max(0.0, (column - item->width()) / 2));
  }
}

/// In the middle of the column after the text.
void LineLayout::placePinned(const std::vector<QQuickItem*>& items) const {
  for (QQuickItem* item : items) {
    item->setWidth(item->implicitWidth());
    item->setX(width() - (pinnedWidth_ + item->width()) / 2);
    item->setY(std::round((implicitHeight() - item->implicitHeight()) / 2));
  }
}

/// Returns the height of the line.
double LineLayout::placeDown(const std::vector<QQuickItem*>& items, double top) {
  if (alignsBaselines_) {
    return placeOnBaseline(items, top);
  }
  double height = 0;
  for (const QQuickItem* item : items) {
    height = std::max(height, item->implicitHeight());
  }
  for (QQuickItem* item : items) {
    item->setY(top + std::round((height - item->implicitHeight()) / 2));
  }
  return height;
}

/// Returns the height of the line. The baseline is just low enough that nothing reaches above the
/// line, in whole points, so that letters are drawn on whole pixels.
double LineLayout::placeOnBaseline(const std::vector<QQuickItem*>& items, double top) {
  const auto first = std::find_if(items.begin(), items.end(), [](const QQuickItem* item) {
    return item->baselineOffset() > 0;
  });
  const double centre =
      first == items.end() ? 0 : (*first)->implicitHeight() / 2 - (*first)->baselineOffset();
  const auto ascent = [centre](const QQuickItem* item) {
    const double offset = item->baselineOffset();
    return offset > 0 ? offset : item->implicitHeight() / 2 - centre;
  };
  double baseline = 0;
  for (const QQuickItem* item : items) {
    baseline = std::max(baseline, std::ceil(ascent(item)));
  }
  double height = 0;
  for (QQuickItem* item : items) {
    const double y = baseline - ascent(item);
    item->setY(top + (item->baselineOffset() > 0 ? y : std::round(y)));
    height = std::max(height, std::ceil(y + item->implicitHeight()));
  }
  if (top == 0) {
    setBaselineOffset(baseline);
  }
  return height;
}

} // namespace tamberline
