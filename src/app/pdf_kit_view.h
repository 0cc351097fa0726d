#pragma once

#include <QPdfView>

namespace tamberline {

/// All pages of a document one below the other, each as large as the view. The document belongs to
/// the caller and outlives the view, whose pages are drawn on another thread.
class PDFKitView final : public QPdfView {
public:
  PDFKitView(QPdfDocument& document, QWidget* parent) : QPdfView(parent) {
    setPageMode(PageMode::MultiPage);
    setZoomMode(ZoomMode::FitInView);
    setDocument(&document);
  }
};

} // namespace tamberline
