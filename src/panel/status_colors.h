#pragma once

#include "panel/color_set.h"

#include <QObject>
#include <QtQml/qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace tamberline {

class Theme;

/// How the colours of the panel's description are drawn. Some come from the theme; others are
/// fixed, some of them with a light and a dark variant. Updated with the theme. Main thread only.
class StatusColors final : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON

  /// For areas.
  Q_PROPERTY(tamberline::ColorSet fills READ fills NOTIFY changed)
  /// For symbols beside which a text says the same: closer to the fills than the inks are.
  Q_PROPERTY(tamberline::ColorSet marks READ marks NOTIFY changed)
  /// For text and symbols: the same hues with enough contrast on every background of text.
  Q_PROPERTY(tamberline::ColorSet inks READ inks NOTIFY changed)

public:
  /// `theme` must outlive this.
  explicit StatusColors(const Theme& theme);

  /// The engine's instance; called by QML.
  static StatusColors* create(QQmlEngine* engine, QJSEngine* scriptEngine);

  const ColorSet& fills() const { return fills_; }
  const ColorSet& inks() const { return inks_; }
  const ColorSet& marks() const { return marks_; }

signals:
  void changed();

private:
  void readTheme();

  const Theme& theme_;
  ColorSet fills_;
  ColorSet inks_;
  ColorSet marks_;
};

} // namespace tamberline
