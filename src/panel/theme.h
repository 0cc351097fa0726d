#pragma once

#include <QColor>
#include <QFont>
#include <QObject>
#include <QPalette>
#include <QVariantMap>
#include <QtQml/qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace tamberline {

/// What the panel looks like: colours from the platform's palette and accent, fonts from the
/// platform's font. Follows both live. Main thread only.
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
  /// What areas are filled with: a map by the name of the colour. As a plain value, so that
  /// qmllint takes any name; an unknown one is a warning at run time.
  Q_PROPERTY(QVariant fills READ fills NOTIFY changed)
  /// The same colours for text and symbols: the same hue, but readable wherever text stands.
  Q_PROPERTY(QVariant inks READ inks NOTIFY changed)

  Q_PROPERTY(QFont titleFont MEMBER titleFont_ NOTIFY changed)
  Q_PROPERTY(QFont bodyFont MEMBER bodyFont_ NOTIFY changed)
  Q_PROPERTY(QFont subheadlineFont MEMBER subheadlineFont_ NOTIFY changed)
  Q_PROPERTY(QFont captionFont MEMBER captionFont_ NOTIFY changed)
  Q_PROPERTY(QFont caption2Font MEMBER caption2Font_ NOTIFY changed)
  Q_PROPERTY(QFont badgeFont MEMBER badgeFont_ NOTIFY changed)
  /// How much larger than the design's own size the text is; lengths that go with text follow it.
  Q_PROPERTY(double scale READ scale NOTIFY changed)
  Q_PROPERTY(double symbolSize READ symbolSize NOTIFY changed)
  Q_PROPERTY(double smallSymbolSize READ smallSymbolSize NOTIFY changed)
  Q_PROPERTY(double buttonSize READ buttonSize NOTIFY changed)
  /// What the name of a device or a port keeps when badges crowd it.
  Q_PROPERTY(double leastNameWidth READ leastNameWidth NOTIFY changed)
  Q_PROPERTY(double leastTitleWidth READ leastTitleWidth NOTIFY changed)

public:
  /// `fontScale` multiplies the size that the platform wants.
  explicit Theme(double fontScale, QObject* parent = nullptr);

  /// The one that PanelContext holds for the engine.
  static Theme* create(QQmlEngine* engine, QJSEngine* scriptEngine);

  bool isDark() const { return isDark_; }
  QVariant fills() const { return fills_; }
  QVariant inks() const { return inks_; }
  double scale() const { return scale_; }
  double symbolSize() const { return qRound(14 * scale_); }
  double smallSymbolSize() const { return qRound(11 * scale_); }
  double buttonSize() const { return qRound(24 * scale_); }
  double leastNameWidth() const { return qRound(120 * scale_); }
  double leastTitleWidth() const { return qRound(150 * scale_); }

  bool eventFilter(QObject* watched, QEvent* event) override;

signals:
  void changed();

private:
  void readPalette(const QPalette& palette);
  void readFont(const QFont& platformFont);
  QColor inkOf(const QColor& fill) const;

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
  QVariantMap fills_;
  QVariantMap inks_;
  QFont titleFont_;
  QFont bodyFont_;
  QFont subheadlineFont_;
  QFont captionFont_;
  QFont caption2Font_;
  QFont badgeFont_;
};

} // namespace tamberline
