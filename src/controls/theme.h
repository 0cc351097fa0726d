#pragma once

#include <QColor>
#include <QFont>
#include <QObject>
#include <QPalette>
#include <QtQml/qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace tamberline {

/// The colours of the panel, from the platform's palette and accent, and its fonts, from the
/// platform's font. Updated when these change. Main thread only.
class Theme final : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON

  Q_PROPERTY(bool isDark READ isDark NOTIFY changed)
  Q_PROPERTY(QColor window MEMBER window_ NOTIFY changed)
  Q_PROPERTY(QColor card MEMBER card_ NOTIFY changed)
  Q_PROPERTY(QColor field MEMBER field_ NOTIFY changed)
  Q_PROPERTY(QColor separator MEMBER separator_ NOTIFY changed)
  Q_PROPERTY(QColor text MEMBER text_ NOTIFY changed)
  Q_PROPERTY(QColor secondary MEMBER secondary_ NOTIFY changed)
  Q_PROPERTY(QColor tertiary MEMBER tertiary_ NOTIFY changed)
  Q_PROPERTY(QColor accent MEMBER accent_ NOTIFY changed)
  Q_PROPERTY(QColor grey MEMBER grey_ NOTIFY changed)
  /// Laid over what the pointer is on, and over what is pressed.
  Q_PROPERTY(QColor hoverWash MEMBER hoverWash_ NOTIFY changed)
  Q_PROPERTY(QColor pressedWash MEMBER pressedWash_ NOTIFY changed)

  Q_PROPERTY(QFont titleFont MEMBER titleFont_ NOTIFY changed)
  Q_PROPERTY(QFont bodyFont MEMBER bodyFont_ NOTIFY changed)
  Q_PROPERTY(QFont subheadlineFont MEMBER subheadlineFont_ NOTIFY changed)
  Q_PROPERTY(QFont captionFont MEMBER captionFont_ NOTIFY changed)
  Q_PROPERTY(QFont caption2Font MEMBER caption2Font_ NOTIFY changed)
  Q_PROPERTY(QFont badgeFont MEMBER badgeFont_ NOTIFY changed)
  /// The size of text relative to the design. Lengths that depend on text are scaled by it.
  Q_PROPERTY(double scale READ scale NOTIFY changed)
  Q_PROPERTY(double symbolSize READ symbolSize NOTIFY changed)
  Q_PROPERTY(double smallSymbolSize READ smallSymbolSize NOTIFY changed)
  Q_PROPERTY(double buttonSize READ buttonSize NOTIFY changed)
  /// From the edge of a row's content to its text: the column of symbols and a gap.
  Q_PROPERTY(double textIndent READ textIndent NOTIFY changed)
  /// The column of chevrons, to the right of a row's text.
  Q_PROPERTY(double chevronWidth READ chevronWidth NOTIFY changed)
  /// The min widths that badges leave for the name of a device and the title of a port.
  Q_PROPERTY(double minNameWidth READ minNameWidth NOTIFY changed)
  Q_PROPERTY(double minTitleWidth READ minTitleWidth NOTIFY changed)

public:
  /// `fontScale` multiplies the platform's font size.
  explicit Theme(double fontScale, QObject* parent = nullptr);

  /// The engine's instance; called by QML.
  static Theme* create(QQmlEngine* engine, QJSEngine* scriptEngine);

  bool isDark() const { return isDark_; }
  QColor text() const { return text_; }
  QColor window() const { return window_; }
  QColor card() const { return card_; }
  QColor accent() const { return accent_; }
  QColor grey() const { return grey_; }
  /// The colour from which `secondary` is derived; for areas, which need less contrast than text.
  QColor fadedText() const { return fadedText_; }
  /// The same hue with enough contrast on every background of text: the card, the window, a field,
  /// a tint of the colour itself, also on a tinted row, and the grey of a count.
  QColor readable(const QColor& color) const;
  /// The same hue with enough contrast for a symbol on a card, the window or a tinted row.
  QColor visible(const QColor& color) const;

  double scale() const { return scale_; }
  double symbolSize() const { return qRound(14 * scale_); }
  double smallSymbolSize() const { return qRound(11 * scale_); }
  double buttonSize() const { return qRound(24 * scale_); }
  double textIndent() const { return symbolSize() + 6; }
  double chevronWidth() const { return symbolSize() + 4; }
  double minNameWidth() const { return qRound(120 * scale_); }
  double minTitleWidth() const { return qRound(150 * scale_); }

  bool eventFilter(QObject* watched, QEvent* event) override;

signals:
  void changed();

private:
  void readPalette(const QPalette& palette);
  void readFont(const QFont& platformFont);

  double fontScale_;
  bool isDark_ = false;
  double scale_ = 1;
  QColor window_;
  QColor card_;
  QColor field_;
  QColor separator_;
  QColor text_;
  QColor secondary_;
  QColor tertiary_;
  QColor accent_;
  QColor grey_;
  QColor hoverWash_;
  QColor pressedWash_;
  QColor fadedText_;
  QFont titleFont_;
  QFont bodyFont_;
  QFont subheadlineFont_;
  QFont captionFont_;
  QFont caption2Font_;
  QFont badgeFont_;
};

} // namespace tamberline
