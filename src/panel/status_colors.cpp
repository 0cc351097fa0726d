#include "panel/status_colors.h"

#include "controls/engine_objects.h"
#include "controls/theme.h"

namespace tamberline {
namespace {

QColor rgb(double red, double green, double blue) {
  return QColor::fromRgbF(static_cast<float>(red), static_cast<float>(green),
                          static_cast<float>(blue));
}

ColorSet fillsOf(const Theme& theme) {
  const auto pick = [&](const char* light, const char* dark) {
    return QColor(theme.isDark() ? dark : light);
  };
  ColorSet fills;
  fills.set(Color::Green, pick("#2fa653", "#3cc46a"));
  fills.set(Color::Amber, rgb(0.9, 0.7, 0.0));
  fills.set(Color::SpeedTextAmber, rgb(0.85, 0.65, 0.0));
  fills.set(Color::Orange, pick("#e87722", "#ff9142"));
  fills.set(Color::Red, pick("#d9363e", "#ff6961"));
  fills.set(Color::Blue, pick("#2f7df6", "#5a9cff"));
  fills.set(Color::Purple, pick("#8a4fd3", "#b98af5"));
  fills.set(Color::Yellow, pick("#e2b007", "#ffcf3d"));
  fills.set(Color::Grey, theme.grey());
  fills.set(Color::Clear, Qt::transparent);
  fills.set(Color::Accent, theme.accent());
  fills.set(Color::Primary, theme.text());
  fills.set(Color::Secondary, theme.fadedText());
  fills.set(Color::TextBackground, theme.card());
  return fills;
}

} // namespace

StatusColors::StatusColors(const Theme& theme) : theme_(theme) {
  readTheme();
  connect(&theme, &Theme::changed, this, [this] {
    readTheme();
    emit changed();
  });
}

StatusColors* StatusColors::create(QQmlEngine* engine, QJSEngine* /*scriptEngine*/) {
  return engineObject<StatusColors>(*engine);
}

void StatusColors::readTheme() {
  fills_ = fillsOf(theme_);
  for (std::size_t index = 0; index < ColorSet::size; ++index) {
    const auto color = static_cast<Color>(index);
    inks_.set(color, theme_.readable(fills_.of(color)));
    marks_.set(color, theme_.visible(fills_.of(color)));
  }
}

} // namespace tamberline
