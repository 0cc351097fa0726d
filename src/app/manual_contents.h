#pragma once

#include <QPdfDocument>
#include <QPointF>
#include <QRectF>

#include <vector>

namespace tamberline {

/// A line of a manual's table of contents. Places are in the points of their pages, from the upper
/// left corner.
struct ContentsEntry {
  int page = 0;
  QRectF place;
  int targetPage = 0;
  QPointF target;
};

/// The lines that have the title of a bookmark and the number of the page that it leads to. They
/// are found by their text: Qt's PDF module tells of links only from 6.6 on.
std::vector<ContentsEntry> contentsOf(QPdfDocument& document);

} // namespace tamberline
