#include "app/pdf_kit_view.h"

#include <QGuiApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPdfDocument>
#include <QScreen>
#include <QScrollBar>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tamberline {
namespace {

constexpr double pointsPerInch = 72;
constexpr double zoomStep = 1.25;
constexpr double minZoom = 0.25;
constexpr double maxZoom = 5;

/// For one point of a page at a zoom of 1. The view uses the first screen's resolution.
double pixelsPerPoint() {
  return QGuiApplication::primaryScreen()->logicalDotsPerInch() / pointsPerInch;
}

} // namespace

PDFKitView::PDFKitView(QPdfDocument& document, QWidget* parent)
    : QPdfView(parent), contents_(contentsOf(document)) {
  setPageMode(PageMode::MultiPage);
  setZoomMode(ZoomMode::FitInView);
  setDocument(&document);
  viewport()->setMouseTracking(true); // for the shape of the cursor
}

/// The same as the view's own calculation, which it does not expose.
QSize PDFKitView::sizeOfPage(int page) const {
  const QSizeF points = document()->pagePointSize(page);
  if (zoomMode() == ZoomMode::Custom) {
    return (points * pixelsPerPoint() * zoomFactor()).toSize();
  }
  const QMargins margins = documentMargins();
  const QSize room = viewport()->size() - QSize(margins.left() + margins.right(), pageSpacing());
  return (points * pixelsPerPoint()).toSize().scaled(room, Qt::KeepAspectRatio);
}

std::vector<QRect> PDFKitView::pageRectangles() const {
  std::vector<QRect> pages;
  int width = viewport()->width();
  int top = documentMargins().top();
  for (int page = 0; page < document()->pageCount(); ++page) {
    const QSize size = sizeOfPage(page);
    pages.emplace_back(QPoint(0, top), size);
    top += size.height() + pageSpacing();
    width = std::max(width, size.width() + documentMargins().left() + documentMargins().right());
  }
  for (QRect& page : pages) {
    page.moveLeft((width - page.width()) / 2);
  }
  return pages;
}

void PDFKitView::keyPressEvent(QKeyEvent* event) {
  const bool isWithControl = event->modifiers().testFlag(Qt::ControlModifier);
  if (event->key() == Qt::Key_Home) {
    verticalScrollBar()->triggerAction(QScrollBar::SliderToMinimum);
  } else if (event->key() == Qt::Key_End) {
    verticalScrollBar()->triggerAction(QScrollBar::SliderToMaximum);
  } else if (!isWithControl || !handleZoomKey(event->key())) {
    QPdfView::keyPressEvent(event);
  }
}

bool PDFKitView::handleZoomKey(int key) {
  switch (key) {
  case Qt::Key_Plus:
  case Qt::Key_Equal: // the key of "+" on keyboards where that needs Shift
    zoomTo(currentZoom() * zoomStep);
    return true;
  case Qt::Key_Minus:
    zoomTo(currentZoom() / zoomStep);
    return true;
  case Qt::Key_0:
    keepingCentre([this] { setZoomMode(ZoomMode::FitInView); });
    return true;
  default:
    return false;
  }
}

double PDFKitView::currentZoom() const {
  return sizeOfPage(0).height() / (document()->pagePointSize(0).height() * pixelsPerPoint());
}

void PDFKitView::zoomTo(double zoom) {
  keepingCentre([&] {
    setZoomFactor(std::clamp(zoom, minZoom, maxZoom));
    setZoomMode(ZoomMode::Custom);
  });
}

template <typename Change>
void PDFKitView::keepingCentre(const Change& change) {
  const auto middleOf = [](const QScrollBar& bar) { return bar.value() + bar.pageStep() / 2.0; };
  const auto lengthOf = [](const QScrollBar& bar) { return bar.maximum() + bar.pageStep(); };
  QScrollBar& bar = *verticalScrollBar();
  const double middle = middleOf(bar) / lengthOf(bar);
  change();
  bar.setValue(static_cast<int>(std::lround(middle * lengthOf(bar) - bar.pageStep() / 2.0)));
  QScrollBar& across = *horizontalScrollBar();
  across.setValue((across.minimum() + across.maximum()) / 2);
}

const ContentsEntry* PDFKitView::entryAt(const QPoint& place) const {
  const QPoint inDocument =
      place + QPoint(horizontalScrollBar()->value(), verticalScrollBar()->value());
  const std::vector<QRect> pages = pageRectangles();
  const auto found =
      std::find_if(contents_.begin(), contents_.end(), [&](const ContentsEntry& entry) {
        const QRect& page = pages[static_cast<std::size_t>(entry.page)];
        const QPointF inPage = inDocument - page.topLeft();
        const double scale = document()->pagePointSize(entry.page).height() / page.height();
        return entry.place.contains(inPage * scale);
      });
  return found == contents_.end() ? nullptr : &*found;
}

/// To the start of the chapter's page, so that the whole page is visible.
void PDFKitView::goTo(const ContentsEntry& entry) {
  const QRect page = pageRectangles()[static_cast<std::size_t>(entry.targetPage)];
  const double scale = page.height() / document()->pagePointSize(entry.targetPage).height();
  const bool fits = page.height() <= viewport()->height();
  const int below = fits ? 0 : static_cast<int>(std::lround(entry.target.y() * scale));
  verticalScrollBar()->setValue(page.top() + below);
}

void PDFKitView::mousePressEvent(QMouseEvent* event) {
  pressed_ = event->button() == Qt::LeftButton ? entryAt(event->pos()) : nullptr;
  if (pressed_ == nullptr) {
    QPdfView::mousePressEvent(event);
  }
}

void PDFKitView::mouseMoveEvent(QMouseEvent* event) {
  if (entryAt(event->pos()) != nullptr) {
    viewport()->setCursor(Qt::PointingHandCursor);
    return;
  }
  viewport()->unsetCursor();
  QPdfView::mouseMoveEvent(event);
}

void PDFKitView::mouseReleaseEvent(QMouseEvent* event) {
  const ContentsEntry* pressed = std::exchange(pressed_, nullptr);
  if (pressed == nullptr) {
    QPdfView::mouseReleaseEvent(event);
  } else if (pressed == entryAt(event->pos())) {
    goTo(*pressed);
  }
}

} // namespace tamberline
