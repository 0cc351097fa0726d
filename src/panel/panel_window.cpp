#include "panel/panel_window.h"

#include "panel/panel_size.h"
#include "panel/qml_modules.h"

#include <QKeyEvent>
#include <QQmlEngine>
#include <QQuickItem>
#include <QUrl>

#include <algorithm>
#include <cmath>

namespace tamberline {
namespace {

constexpr double cornerRadius = 12;

bool startsText(const QKeyEvent& event) {
  const Qt::KeyboardModifiers modifiers =
      event.modifiers() & ~Qt::KeyboardModifiers(Qt::ShiftModifier);
  const QString text = event.text();
  return (modifiers == Qt::NoModifier || modifiers == Qt::KeypadModifier) && !text.isEmpty() &&
         text.front().isPrint() && !text.front().isSpace();
}

} // namespace

PanelWindow::PanelWindow(PanelContext& context, Style style) : context_(context) {
  useQmlModules(*engine());
  context_.attachTo(*engine());
  setTitle(QStringLiteral("Tamberline"));
  setFlags(style.kind == Kind::attached
               ? Qt::Tool | Qt::FramelessWindowHint
               : Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                     Qt::WindowCloseButtonHint | Qt::WindowMinimizeButtonHint);
  setResizeMode(QQuickView::SizeRootObjectToView);
  setWidth(qRound(PanelSize::width));
  setHeight(qRound(PanelSize::initialHeight));
  setSurface(style.corners);
  setInitialProperties(
      {{QStringLiteral("isFrameless"), style.kind == Kind::attached},
       {QStringLiteral("cornerRadius"), style.corners == Corners::round ? cornerRadius : 0}});
  setSource(QUrl(QStringLiteral("qrc:/qml/Tamberline/ContentView.qml")));
}

/// Round corners need a transparent window, whose surface the content paints.
void PanelWindow::setSurface(Corners corners) {
  if (corners == Corners::round) {
    QSurfaceFormat transparent = format();
    transparent.setAlphaBufferSize(8);
    setFormat(transparent);
    setColor(Qt::transparent);
    return;
  }
  const auto followTheme = [this] { setColor(context_.theme()->window()); };
  followTheme();
  connect(context_.theme(), &Theme::changed, this, followTheme);
}

void PanelWindow::keyPressEvent(QKeyEvent* event) {
  context_.tooltips()->hide();
  QQuickView::keyPressEvent(event);
  if (!event->isAccepted()) {
    handleUnusedKey(*event);
  }
}

void PanelWindow::showEvent(QShowEvent* event) {
  QQuickView::showEvent(event);
  context_.updated()->setPanelVisible(true);
}

void PanelWindow::hideEvent(QHideEvent* event) {
  QQuickView::hideEvent(event);
  context_.updated()->setPanelVisible(false);
  context_.tooltips()->hide();
  context_.popover()->close();
}

void PanelWindow::resizeEvent(QResizeEvent* event) {
  QQuickView::resizeEvent(event);
  centerContent();
}

/// A tiled or maximized window can be wider than the panel, which then keeps its width and is
/// centred.
void PanelWindow::centerContent() {
  if (QQuickItem* const content = rootObject(); content != nullptr) {
    const double contentWidth = std::min<double>(width(), PanelSize::width);
    content->setWidth(contentWidth);
    content->setX(std::floor((width() - contentWidth) / 2));
  }
}

/// On a Mac, Qt::CTRL is the command key.
void PanelWindow::handleUnusedKey(QKeyEvent& event) {
  const QKeyCombination keys = event.keyCombination();
  if (event.key() == Qt::Key_Escape) {
    escape();
  } else if (keys == (Qt::CTRL | Qt::Key_F)) {
    context_.search()->focusField();
  } else if (keys == (Qt::CTRL | Qt::Key_W)) {
    context_.panel()->close();
  } else if (keys == (Qt::CTRL | Qt::Key_Q)) {
    context_.panel()->quit();
  } else if (startsText(event)) {
    context_.search()->type(event.text());
  } else {
    return;
  }
  event.accept();
}

/// Closes what was opened last.
void PanelWindow::escape() {
  if (context_.popover()->target() != nullptr) {
    context_.popover()->close();
  } else if (context_.search()->isSearching()) {
    context_.search()->clear();
  } else {
    context_.panel()->close();
  }
}

} // namespace tamberline
