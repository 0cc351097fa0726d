#pragma once

#include "app/manual_contents.h"

#include <QPdfView>

#include <vector>

namespace tamberline {

/// All pages of a document one below the other, at first each as large as the view. The keys for
/// the start, the end and the size of the text work, and a click on a line of the contents leads to
/// its chapter. The document belongs to the caller and outlives the view, whose pages are drawn on
/// another thread.
class PDFKitView final : public QPdfView {
public:
  PDFKitView(QPdfDocument& document, QWidget* parent);

  /// Where the pages are, as if the view were so high that it shows all of them.
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
  /// Changes the size of the pages; what was in the middle stays there.
  template <typename Change>
  void keepingTheMiddle(const Change& change);
  bool handleZoomKey(int key);
  const ContentsEntry* entryAt(const QPoint& place) const;
  void goTo(const ContentsEntry& entry);

  std::vector<ContentsEntry> contents_;
  const ContentsEntry* pressed_ = nullptr;
};

} // namespace tamberline
