#include "app/manual_document.h"
#include "app/pdf_kit_view.h"
#include "support/event_loop.h"

#include <QApplication>
#include <QImage>
#include <QMouseEvent>
#include <QPdfDocument>
#include <QScrollBar>
#include <gtest/gtest.h>

#include <memory>

namespace tamberline {
namespace {

/// A manual of three pages, with its contents on the first.
class ManualView : public testing::Test {
protected:
  ManualView() {
    view.resize(600, 700);
    view.show();
    QCoreApplication::processEvents();
  }

  void press(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QKeyEvent event(QEvent::KeyPress, key, modifiers);
    QApplication::sendEvent(&view, &event);
  }

  void send(QEvent::Type type, const QPoint& place, Qt::MouseButton button) {
    const QPoint global = view.viewport()->mapToGlobal(place);
    QMouseEvent event(type, place, global, button, button, Qt::NoModifier);
    QApplication::sendEvent(view.viewport(), &event);
  }

  void click(const QPoint& place) {
    send(QEvent::MouseButtonPress, place, Qt::LeftButton);
    send(QEvent::MouseButtonRelease, place, Qt::LeftButton);
  }

  /// Of a position on the first page, in points from its upper left corner.
  QPoint placeOf(double x, double y) const {
    const QRect page = view.pageRectangles().front();
    const double scale = page.width() / document->pagePointSize(0).width();
    const QPoint scrolled(view.horizontalScrollBar()->value(), view.verticalScrollBar()->value());
    return page.topLeft() + QPoint(qRound(x * scale), qRound(y * scale)) - scrolled;
  }

  QPoint secondChapter() const { return placeOf(60, 137); }
  int scrolled() const { return view.verticalScrollBar()->value(); }
  int topOfPage(std::size_t page) const { return view.pageRectangles()[page].top(); }

  std::unique_ptr<QPdfDocument> document = loadDocument(MANUAL_WITH_CHAPTERS_FOLDER);
  PDFKitView view{*document, nullptr};
};

/// The part of the picture that is as light as paper.
QRect paperIn(const QImage& picture) {
  QRect paper;
  for (int y = 0; y < picture.height(); ++y) {
    for (int x = 0; x < picture.width(); ++x) {
      if (picture.pixelColor(x, y) == Qt::white) {
        paper |= QRect(x, y, 1, 1);
      }
    }
  }
  return paper;
}

TEST_F(ManualView, KnowsThePositionsOfItsPages) {
  view.verticalScrollBar()->setValue(topOfPage(1) - 1);
  const QRect expected = view.pageRectangles()[1].translated(0, -scrolled());
  EXPECT_TRUE(expected.height() > 600 && expected.width() > 400);
  QRect paper;
  EXPECT_TRUE(runEventsUntil([&] {
    const QImage picture = view.viewport()->grab().toImage();
    paper = paperIn(picture.copy(expected.adjusted(-3, -3, 3, 3)));
    return paper.size() == expected.size();
  })) << paper.width()
      << " x " << paper.height();
  EXPECT_EQ(paper.topLeft(), QPoint(3, 3));
}

TEST_F(ManualView, GoesToTheChapterWhoseLineIsClicked) {
  click(secondChapter());
  EXPECT_EQ(scrolled(), topOfPage(2));
  press(Qt::Key_Home);
  click(placeOf(253, 117)); // the page number
  EXPECT_EQ(scrolled(), topOfPage(1));
}

TEST_F(ManualView, GoesToTheHeadingWhereAPageIsHigherThanTheView) {
  for (int step = 0; step < 4; ++step) {
    press(Qt::Key_Plus, Qt::ControlModifier);
  }
  press(Qt::Key_Home);
  click(secondChapter());
  const QRect page = view.pageRectangles()[2];
  EXPECT_GT(page.height(), view.viewport()->height());
  EXPECT_NEAR(scrolled(), page.top() + 0.45 * page.height(), 1);
}

TEST_F(ManualView, DoesNotMoveOnAnyOtherClick) {
  click(placeOf(60, 60));
  click(placeOf(60, 177)); // a sentence that starts like a line of the contents
  click(placeOf(60, 377)); // the footer
  EXPECT_EQ(scrolled(), 0);
  send(QEvent::MouseButtonPress, secondChapter(), Qt::RightButton);
  send(QEvent::MouseButtonRelease, secondChapter(), Qt::RightButton);
  EXPECT_EQ(scrolled(), 0);
  send(QEvent::MouseButtonPress, secondChapter(), Qt::LeftButton);
  send(QEvent::MouseButtonRelease, placeOf(60, 60), Qt::LeftButton);
  EXPECT_EQ(scrolled(), 0);
}

TEST_F(ManualView, ShowsAPointingHandOverClickableLines) {
  send(QEvent::MouseMove, secondChapter(), Qt::NoButton);
  EXPECT_EQ(view.viewport()->cursor().shape(), Qt::PointingHandCursor);
  send(QEvent::MouseMove, placeOf(60, 60), Qt::NoButton);
  EXPECT_EQ(view.viewport()->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(ManualView, GoesToItsStartAndItsEnd) {
  press(Qt::Key_End);
  EXPECT_EQ(scrolled(), view.verticalScrollBar()->maximum());
  EXPECT_GT(scrolled(), topOfPage(1));
  press(Qt::Key_Home);
  EXPECT_EQ(scrolled(), 0);
}

TEST_F(ManualView, MovesByPages) {
  press(Qt::Key_PageDown);
  EXPECT_NEAR(scrolled(), topOfPage(1), view.documentMargins().top());
  press(Qt::Key_PageUp);
  EXPECT_EQ(scrolled(), 0);
}

TEST_F(ManualView, GrowsAndShrinksWithTheKeyboard) {
  const auto width = [this] { return view.pageRectangles().front().width(); };
  const int fitting = width();
  press(Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_NEAR(width(), fitting * 1.25, 2);
  press(Qt::Key_Equal, Qt::ControlModifier);
  EXPECT_NEAR(width(), fitting * 1.25 * 1.25, 2);
  press(Qt::Key_Minus, Qt::ControlModifier);
  EXPECT_NEAR(width(), fitting * 1.25, 2);
  press(Qt::Key_0, Qt::ControlModifier);
  EXPECT_EQ(width(), fitting);
  EXPECT_EQ(view.zoomMode(), QPdfView::ZoomMode::FitInView);
  press(Qt::Key_Plus);
  EXPECT_EQ(width(), fitting);
}

TEST_F(ManualView, KeepsItsCentreWhenItGrows) {
  click(secondChapter());
  const auto middle = [this] {
    const QRect page = view.pageRectangles()[2];
    return (scrolled() + view.viewport()->height() / 2.0 - page.top()) / page.height();
  };
  const double before = middle();
  press(Qt::Key_Plus, Qt::ControlModifier);
  EXPECT_NEAR(middle(), before, 0.02);
  press(Qt::Key_0, Qt::ControlModifier);
  EXPECT_NEAR(middle(), before, 0.02);
}

TEST_F(ManualView, HasAMinAndAMaxSize) {
  for (int step = 0; step < 30; ++step) {
    press(Qt::Key_Minus, Qt::ControlModifier);
  }
  EXPECT_EQ(view.zoomFactor(), 0.25);
  for (int step = 0; step < 30; ++step) {
    press(Qt::Key_Plus, Qt::ControlModifier);
  }
  EXPECT_EQ(view.zoomFactor(), 5);
}

} // namespace
} // namespace tamberline
