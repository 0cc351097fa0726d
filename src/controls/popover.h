#pragma once

#include <QObject>
#include <QPointer>
#include <QQuickItem>
#include <QString>
#include <QtQml/qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace tamberline {

/// The one explanation that is open on the panel: which button opened it, and what it says. Goes
/// when its button does. Main thread only.
class Popover final : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON

  Q_PROPERTY(QString title READ title NOTIFY changed)
  Q_PROPERTY(QString text READ text NOTIFY changed)
  /// Null when none is open.
  Q_PROPERTY(QQuickItem* target READ target NOTIFY changed)

public:
  /// No default constructor: QML would prefer it to `create`.
  explicit Popover(QObject* parent) : QObject(parent) {}

  /// The engine's own.
  static Popover* create(QQmlEngine* engine, QJSEngine* scriptEngine);

  QString title() const { return title_; }
  QString text() const { return text_; }
  QQuickItem* target() const { return target_; }

  Q_INVOKABLE void toggle(QQuickItem* button, const QString& title, const QString& text);
  Q_INVOKABLE void close();

signals:
  void changed();

private:
  QPointer<QQuickItem> target_;
  QString title_;
  QString text_;
};

} // namespace tamberline
