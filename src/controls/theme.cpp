#include "controls/theme.h"

#include "controls/color_math.h"
#include "controls/engine_objects.h"

#include <QEvent>
#include <QFontInfo>
#include <QGuiApplication>

namespace tamberline {
namespace {

/// The min contrast of small text.
constexpr double readableContrast = 4.5;
/// The min contrast of symbols and lines.
constexpr double visibleContrast = 3;

/// The share of a colour in the backgrounds of badges and counts.
constexpr double badgeShare = 0.12;
constexpr double countShare = 0.15;
/// The strongest tint of a row, and its share.
constexpr QColor tint(0xff, 0xcf, 0x3d);
constexpr double tintShare = 0.07;

/// The platform's text size for which the sizes below are designed.
constexpr double designPixelSize = 13;

QColor translucent(QColor color, double opacity) {
  color.setAlphaF(static_cast<float>(opacity));
  return color;
}

bool isDarkColor(const QColor& color) {
  return contrastRatio(color, Qt::white) > contrastRatio(color, Qt::black);
}

/// The palette's accent, or its selection colour if the palette sets only that or Qt is older than
/// 6.6, which added the accent. Not always the selection colour: on a Mac that is a pale shade of
/// the accent.
QColor accentOf(const QPalette& palette) {
#if QT_VERSION >= QT_VERSION_CHECK(6, 6, 0)
  const bool hasOnlyHighlight = palette.isBrushSet(QPalette::Active, QPalette::Highlight) &&
                                !palette.isBrushSet(QPalette::Active, QPalette::Accent);
  if (!hasOnlyHighlight) {
    return palette.color(QPalette::Active, QPalette::Accent);
  }
#endif
  return palette.color(QPalette::Active, QPalette::Highlight);
}

QFont sized(QFont font, double pixels, QFont::Weight weight) {
  font.setPixelSize(qRound(pixels));
  font.setWeight(weight);
  return font;
}

} // namespace

Theme::Theme(double fontScale, QObject* parent) : QObject(parent), fontScale_(fontScale) {
  readPalette(QGuiApplication::palette());
  readFont(QGuiApplication::font());
  qGuiApp->installEventFilter(this);
}

Theme* Theme::create(QQmlEngine* engine, QJSEngine* /*scriptEngine*/) {
  return engineObject<Theme>(*engine);
}

bool Theme::eventFilter(QObject* watched, QEvent* event) {
  if (watched == qGuiApp && event->type() == QEvent::ApplicationPaletteChange) {
    readPalette(QGuiApplication::palette());
    emit changed();
  } else if (watched == qGuiApp && event->type() == QEvent::ApplicationFontChange) {
    readFont(QGuiApplication::font());
    emit changed();
  }
  return QObject::eventFilter(watched, event);
}

void Theme::readPalette(const QPalette& palette) {
  window_ = palette.color(QPalette::Active, QPalette::Window);
  card_ = palette.color(QPalette::Active, QPalette::Base);
  text_ = palette.color(QPalette::Active, QPalette::WindowText);
  isDark_ = isDarkColor(window_);
  field_ = blended(text_, window_, 0.06);
  separator_ = blended(text_, card_, 0.10);
  grey_ = isDark_ ? "#98989d" : "#8e8e93";
  fadedText_ = blended(text_, card_, 0.62);
  secondary_ = readable(fadedText_);
  tertiary_ = visible(blended(text_, card_, 0.40));
  accent_ = accentOf(palette);
  hoverWash_ = translucent(text_, 0.045);
  pressedWash_ = translucent(text_, 0.1);
}

QColor Theme::readable(const QColor& color) const {
  return readableOn({card_, window_, field_, blended(color, card_, badgeShare),
                     blended(color, blended(tint, card_, tintShare), badgeShare),
                     blended(grey_, card_, countShare)},
                    color, readableContrast);
}

QColor Theme::visible(const QColor& color) const {
  return readableOn({card_, window_, blended(tint, card_, tintShare)}, color, visibleContrast);
}

void Theme::readFont(const QFont& platformFont) {
  scale_ = fontScale_ * QFontInfo(platformFont).pixelSize() / designPixelSize;
  titleFont_ = sized(platformFont, 14 * scale_, QFont::DemiBold);
  bodyFont_ = sized(platformFont, 13 * scale_, QFont::Normal);
  subheadlineFont_ = sized(platformFont, 13 * scale_, QFont::DemiBold);
  captionFont_ = sized(platformFont, 12 * scale_, QFont::Medium);
  caption2Font_ = sized(platformFont, 10 * scale_, QFont::Normal);
  badgeFont_ = sized(platformFont, 10 * scale_, QFont::DemiBold);
}

} // namespace tamberline
