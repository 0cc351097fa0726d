#include "platform/linux/desktop/status_notifier_item.h"

#include <QGuiApplication>
#include <QPixmap>
#include <QtEndian>

#include <utility>

namespace tamberline {
namespace {

/// Tokens of real desktops are far shorter; anybody on the bus can send one.
constexpr qsizetype maxTokenBytes = 1024;

/// Hosts that know no place send zeros.
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

/// Comes before a click. With it a Wayland desktop lets the window that is opened next have the
/// keyboard; Qt looks for it there.
// NOLINTNEXTLINE(readability-convert-member-functions-to-static): the bus calls it
void StatusNotifierItem::ProvideXdgActivationToken(const QString& token) const {
  if (token.size() <= maxTokenBytes &&
      QGuiApplication::platformName().startsWith(QLatin1String("wayland"))) {
    qputenv("XDG_ACTIVATION_TOKEN", token.toUtf8());
  }
}

/// There is nothing to scroll; hosts send it all the same.
void StatusNotifierItem::Scroll(int /*delta*/, const QString& /*orientation*/) const {}

} // namespace tamberline
