#include "platform/linux/symbols/theme_drawing.h"

#include <QImageReader>
#include <QSize>
#include <QStandardPaths>
#include <QString>

namespace tamberline {
namespace {

QString drawingFile(std::string_view icon) {
  return QStandardPaths::locate(QStandardPaths::GenericDataLocation,
                                QStringLiteral("icons/breeze/%1.svg")
                                    .arg(QString::fromUtf8(icon.data(), qsizetype(icon.size()))));
}

} // namespace

QImage themeDrawing(std::string_view icon, int pixels) {
  const QString file = drawingFile(icon);
  if (file.isEmpty()) {
    return {};
  }
  QImageReader reader(file);
  reader.setScaledSize(QSize(pixels, pixels));
  return reader.read();
}

} // namespace tamberline
