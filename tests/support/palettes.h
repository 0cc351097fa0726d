#pragma once

#include <QColor>
#include <QPalette>

namespace tamberline {

inline QPalette testPalette(const QColor& window, const QColor& card, const QColor& text,
                            const QColor& accent) {
  QPalette palette;
  palette.setColor(QPalette::Window, window);
  palette.setColor(QPalette::Base, card);
  palette.setColor(QPalette::WindowText, text);
  palette.setColor(QPalette::Highlight, accent);
  return palette;
}

inline QPalette lightTestPalette() {
  return testPalette("#eff0f1", "#ffffff", "#232629", "#3daee9");
}

inline QPalette darkTestPalette() {
  return testPalette("#2a2e32", "#1b1e20", "#fcfcfc", "#3daee9");
}

} // namespace tamberline
