#pragma once

#include <QObject>
#include <QPointer>
#include <QQuickItem>
#include <QString>
#include <QtQml/qqmlregistration.h>

class QJSEngine;
class QQmlEngine;

namespace tamberline {

/// The one explanation that can be open on the panel: the button that opened it, its title, its
/// text and, if there is one, a second text. Closes when its button is hidden or deleted. Main
/// thread only.
class Popover final : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON

  Q_PROPERTY(QString title READ title NOTIFY changed)
  Q_PROPERTY(QString text READ text NOTIFY changed)
  Q_PROPERTY(QString secondText READ secondText NOTIFY changed)
  /// Null if none is open.
  Q_PROPERTY(QQuickItem* target READ target NOTIFY changed)
  /// What the explanation is about and must not cover. May be null.
  Q_PROPERTY(QQuickItem* beyond READ beyond NOTIFY changed)

public:
  /// Not a default constructor, because QML would use that instead of `create`.
  explicit Popover(QObject* parent) : QObject(parent) {}

  /// The engine's instance; called by QML.
  static Popover* create(QQmlEngine* engine, QJSEngine* scriptEngine);

  QString title() const { return title_; }
  QString text() const { return text_; }
  QString secondText() const { return secondText_; }
  QQuickItem* target() const { return target_; }
  QQuickItem* beyond() const { return beyond_; }

  Q_INVOKABLE void toggle(QQuickItem* button, const QString& title, const QString& text,
                          const QString& secondText = {}, QQuickItem* beyond = nullptr);
  Q_INVOKABLE void close();

signals:
  void changed();

private:
  QPointer<QQuickItem> target_;
  QPointer<QQuickItem> beyond_;
  QString title_;
  QString text_;
  QString secondText_;
};

} // namespace tamberline
