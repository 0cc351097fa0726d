#include "platform/linux/desktop/status_notifier_item.h"

#include <QGuiApplication>
#include <QPixmap>
#include <QtEndian>

#include <utility>

namespace tamberline {
namespace {

/// Real tokens are far shorter, but any program on the bus can send one.
constexpr qsizetype maxTokenBytes = 1024;

/// Hosts that do not know the position send zeros.
std::optional<QPoint> place(int x, int y) {
  return x == 0 && y == 0 ? std::nullopt : std::optional(QPoint(x, y));
}

TrayPixmap asTrayPixmap(const QPixmap& pixmap) {
  const QImage image = pixmap.toImage().convertToFormat(QImage::Format_ARGB32);
  TrayPixmap out{.width = image.width(), .height = image.height(), .argb = {}};
  out.argb.resize(image.sizeInBytes());
  qToBigEndian<quint32>(image.constBits(), image.sizeInBytes() / qsizetype(sizeof(quint32)),
                        out.argb.data());
  return out;
}

} // namespace

StatusNotifierItem::StatusNotifierItem(Content content, Events events, QObject* parent)
    : QObject(parent), content_(std::move(content)), events_(std::move(events)) {
  registerTrayMessages();
}

void StatusNotifierItem::setIcon(const QIcon& icon) {
  content_.icon = icon;
  emit NewIcon();
}

TrayPixmaps StatusNotifierItem::iconPixmap() const {
  TrayPixmaps pixmaps;
  for (const QSize& size : content_.icon.availableSizes()) {
    pixmaps.append(asTrayPixmap(content_.icon.pixmap(size, 1.0)));
  }
  return pixmaps;
}

void StatusNotifierItem::Activate(int x, int y) const {
  events_.activated(place(x, y));
}

void StatusNotifierItem::SecondaryActivate(int x, int y) const {
  events_.activated(place(x, y));
}

void StatusNotifierItem::ContextMenu(int x, int y) const {
  events_.menuWanted(place(x, y));
}

/// Hosts send the token before a click. On a Wayland desktop it allows the window opened next to
/// take keyboard focus; Qt reads it from this environment variable.
// NOLINTNEXTLINE(readability-convert-member-functions-to-static): the bus calls it
void StatusNotifierItem::ProvideXdgActivationToken(const QString& token) const {
  if (token.size() <= maxTokenBytes &&
      QGuiApplication::platformName().startsWith(QLatin1String("wayland"))) {
    qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8());
  }
}

/// Hosts send scroll events even if there is nothing to scroll.
void StatusNotifierItem::Scroll(int /*delta*/, const QString& /*orientation*/) const {}

} // namespace tamberline
