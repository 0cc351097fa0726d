#pragma once

#include <QPdfDocument>
#include <QPointF>
#include <QRectF>

#include <vector>

namespace tamberline {

/// A line of a manual's table of contents. Positions are in the points of their pages, from the
/// upper left corner.
struct ContentsEntry {
  int page = 0;
  QRectF place;
  int targetPage = 0;
  QPointF target;
};

/// The lines that have the title of a bookmark and the number of its page. They are found by their
/// text, because Qt's PDF module only reports links since 6.6.
std::vector<ContentsEntry> contentsOf(QPdfDocument& document);

} // namespace tamberline
