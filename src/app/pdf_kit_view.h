#pragma once

#include "app/manual_contents.h"

#include <QPdfView>

#include <vector>

namespace tamberline {

/// All pages of a document one below the other, each initially as large as the view. Keys go to the
/// start and the end and change the size; a click on a line of the contents goes to its chapter.
/// The document belongs to the caller and outlives the view, whose pages are drawn on another
/// thread.
class PDFKitView final : public QPdfView {
public:
  PDFKitView(QPdfDocument& document, QWidget* parent);

  /// The positions of the pages in a view that is high enough to show all of them.
  std::vector<QRect> pageRectangles() const;

protected:
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;

private:
  QSize sizeOfPage(int page) const;
  double currentZoom() const;
  void zoomTo(double zoom);
  /// Changes the size of the pages and keeps the centre of the view in place.
  template <typename Change>
  void keepingCentre(const Change& change);
  bool handleZoomKey(int key);
  const ContentsEntry* entryAt(const QPoint& place) const;
  void goTo(const ContentsEntry& entry);

  std::vector<ContentsEntry> contents_;
  const ContentsEntry* pressed_ = nullptr;
};

} // namespace tamberline
