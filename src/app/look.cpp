#include "app/look.h"

#include <QApplication>
#include <QFontDatabase>

namespace tamberline {
namespace {

struct Colors {
  const char* window;
  const char* card;
  const char* text;
  const char* accent;
};

QPalette paletteOf(const Colors& colors) {
  QPalette palette;
  for (const QPalette::ColorRole role : {QPalette::Window, QPalette::Button}) {
    palette.setColor(role, colors.window);
  }
  for (const QPalette::ColorRole role : {QPalette::Base, QPalette::HighlightedText}) {
    palette.setColor(role, colors.card);
  }
  for (const QPalette::ColorRole role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    palette.setColor(role, colors.text);
  }
  palette.setColor(QPalette::Highlight, colors.accent);
  return palette;
}

/// Qt's fallback if no desktop sets a font.
bool isQtFallbackFont(const QFont& font) {
  return font.family() == QLatin1String("Sans Serif") && font.pointSize() == 9;
}

bool hasScreen() {
  return QGuiApplication::platformName() != QLatin1String("offscreen");
}

} // namespace

QPalette lightPalette() {
  return paletteOf(
      {.window = "#f4f4f6", .card = "#ffffff", .text = "#1d1d1f", .accent = "#0a6cff"});
}

QPalette darkPalette() {
  return paletteOf(
      {.window = "#1f1f22", .card = "#2b2b2f", .text = "#f2f2f4", .accent = "#4b9bff"});
}

QFont ownFont() {
  QFont font(QStringLiteral("Inter"));
  font.setPixelSize(13);
  return font;
}

void applyDefaultLookWithoutDesktop() {
  if (!hasScreen() || isQtFallbackFont(QFontDatabase::systemFont(QFontDatabase::GeneralFont))) {
    QApplication::setFont(ownFont());
  }
  if (!hasScreen()) {
    QApplication::setPalette(lightPalette());
  }
}

} // namespace tamberline
