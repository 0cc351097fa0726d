#pragma once

#include "panel/panel_context.h"

#include <QImage>
#include <QQuickItem>

#include <string>

namespace tamberline {

/// A size of the text at which nothing wraps, whatever the version of the font.
inline constexpr double unwrappedScale = 0.6;

/// Says what is drawn of parts of a window: texts, symbols, bars and backgrounds as they look, not
/// as screen readers name them.
class Drawing {
public:
  /// Of the window as it is now, in the colours of its context. The window stays as it is while
  /// this is used.
  Drawing(QQuickWindow& window, PanelContext& context);

  /// The part's lines from top to bottom, in each what it shows from left to right:
  ///
  ///     on yellow 0.07: <bolt.horizontal yellow>  70W Adapter  70 W rated (secondary)
  ///     bar fill green, 6 high, round: 0.10 to 100%, 0.85 to 49%
  ///
  /// First the background of all of it, if it has one. A colour that inks have is named as there,
  /// one that only areas are filled with has "fill" before its name; the plain colour of text is
  /// not mentioned. What is see-through, turned or on a background of its own says so, with the
  /// corners of that. A row's connectors come first: "│ ├". What leaves no trace in the picture is
  /// "unseen".
  std::string of(const QQuickItem& part) const;

  /// The name of a colour, or its value where the theme has none for it.
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
