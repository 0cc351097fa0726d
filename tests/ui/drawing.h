#pragma once

#include "panel/panel_context.h"

#include <QImage>
#include <QQuickItem>

#include <string>

namespace tamberline {

/// A text size at which nothing wraps, whatever the version of the font.
inline constexpr double unwrappedScale = 0.6;

/// Says what is drawn of parts of a window: texts, symbols, bars and backgrounds as they look, not
/// as screen readers name them.
class Drawing {
public:
  /// Of the window as it is now, in the colours of its context. The window stays as it is while
  /// this is used.
  Drawing(QQuickWindow& window, PanelContext& context);

  /// The part's lines from top to bottom, each with its content from left to right:
  ///
  ///     on yellow 0.07: <bolt.horizontal yellow>  70W Adapter  70 W rated (secondary)
  ///     bar fill green, 6 high, round: 0.10 to 100%, 0.85 to 49%
  ///
  /// The background of the whole part comes first, if it has one. Colours of text and symbols have
  /// their names in the theme, colours that only fill areas have "fill" before the name, and the
  /// plain text colour is left out. Translucent and rotated elements and those on another
  /// background are marked as such, with that background's corners. A row's connectors come first:
  /// "│ ├". An element that leaves no trace in the picture is "unseen".
  std::string of(const QQuickItem& part) const;

  /// The name of a colour, or its value if the theme has no name for it.
  std::string colorName(const QColor& color) const;

  const QImage& picture() const { return picture_; }

private:
  class Collector;

  QColor color(const char* name) const;
  bool leavesTrace(const QRectF& place) const;

  const Theme& theme_;
  const StatusColors& statusColors_;
  QImage picture_;
};

} // namespace tamberline
