#include "app/manual_window.h"

#include "app/manual_document.h"
#include "app/pdf_kit_view.h"
#include "i18n/loc.h"

#include <QCursor>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QScreen>
#include <QVBoxLayout>

#include <cstdio>
#include <memory>
#include <utility>

namespace tamberline {
namespace {

/// In points.
constexpr QSize sizeOfManual(760, 920);
/// For the window's title bar, which the desktop adds. Its height is unknown until the window is
/// shown.
constexpr int titleHeight = 40;

QString manualTitle() {
  const std::string_view title = Loc::manualWindowTitle();
  return QString::fromUtf8(title.data(), static_cast<qsizetype>(title.size()));
}

/// The screen on which the manual was opened.
QRect availableScreen() {
  const QScreen* underCursor = QGuiApplication::screenAt(QCursor::pos());
  const QScreen* screen = underCursor != nullptr ? underCursor : QGuiApplication::primaryScreen();
  return screen != nullptr ? screen->availableGeometry() : QRect({0, 0}, sizeOfManual);
}

class Window final : public QWidget {
public:
  explicit Window(std::unique_ptr<QPdfDocument> document) : document_(std::move(document)) {
    setAttribute(Qt::WA_DeleteOnClose);
    setAttribute(Qt::WA_QuitOnClose, false);
    setWindowTitle(manualTitle());
    setAccessibleName(manualTitle());
    view_.setAccessibleName(manualTitle());
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(&view_);
    setFocusProxy(&view_);
  }

protected:
  void keyPressEvent(QKeyEvent* event) override {
    if (event->key() == Qt::Key_Escape || event->matches(QKeySequence::Close)) {
      close();
    } else {
      QWidget::keyPressEvent(event);
    }
  }

private:
  std::unique_ptr<QPdfDocument> document_;
  PDFKitView view_{*document_, this}; // destroyed before the document that it draws
};

void bringToFront(QWidget& window) {
  window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
  window.show();
  window.raise();
  window.activateWindow();
}

} // namespace

ManualWindow::ManualWindow(QString folder) : folder_(std::move(folder)) {}

ManualWindow::~ManualWindow() {
  delete window_;
}

void ManualWindow::show() {
  const QWidget* const known = window_;
  const bool isOpen = known != nullptr && known->isVisible(); // a closed one is destroyed later
  if (!isOpen) {
    open();
  }
  if (QWidget* const window = window_) {
    bringToFront(*window);
  }
}

void ManualWindow::open() {
  window_ = nullptr;
  auto document = loadDocument(folder_);
  if (!document) {
    std::fputs("tamberline: there is no manual beside the program\n", stderr);
    return;
  }
  window_ = new Window(std::move(document));
  const QRect geometry = manualWindowGeometry(availableScreen());
  window_->resize(geometry.size());
  window_->move(geometry.topLeft());
}

QRect manualWindowGeometry(const QRect& availableScreen) {
  const QSize room = availableScreen.size() - QSize(0, titleHeight);
  const QSize size = sizeOfManual.boundedTo(room);
  const QSize rest = room - size;
  return {availableScreen.topLeft() + QPoint(rest.width() / 2, rest.height() / 2), size};
}

} // namespace tamberline
