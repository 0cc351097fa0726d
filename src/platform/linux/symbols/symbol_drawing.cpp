#include "symbols/symbol_drawing.h"

#include "platform/linux/symbols/theme_icons.h"

#include <QImageReader>
#include <QSize>
#include <QStandardPaths>
#include <QString>

namespace tamberline {
namespace {

/// Icons are read as files, because Qt's lookup of theme icons is slower, finds nothing on some
/// platforms and chooses by size between icons that look different.
QString drawingFile(std::string_view icon) {
  return QStandardPaths::locate(QStandardPaths::GenericDataLocation,
                                QStringLiteral("icons/breeze/%1.svg")
                                    .arg(QString::fromUtf8(icon.data(), qsizetype(icon.size()))));
}

} // namespace

QImage symbolDrawing(std::string_view symbol, int pixels) {
  const std::string_view icon = themeIconName(symbol);
  const QString file = icon.empty() ? QString() : drawingFile(icon);
  if (file.isEmpty()) {
    return {};
  }
  QImageReader reader(file);
  reader.setScaledSize(QSize(pixels, pixels));
  return reader.read();
}

} // namespace tamberline
