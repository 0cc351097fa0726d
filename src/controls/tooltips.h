#pragma once

#include "async/main_queue.h"

#include <QObject>
#include <QPointer>
#include <QQuickItem>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <memory>

class QJSEngine;
class QQmlEngine;

namespace tamberline {

/// The tooltip of the panel: its item and its text. It appears when the pointer rests on an item,
/// and disappears when the pointer leaves or the item is hidden or deleted. Main thread only.
class Tooltips final : public QObject {
  Q_OBJECT
  QML_ELEMENT
  QML_SINGLETON

  Q_PROPERTY(QString text READ text NOTIFY changed)
  /// Null if no tooltip is shown.
  Q_PROPERTY(QQuickItem* target READ target NOTIFY changed)

public:
  explicit Tooltips(std::shared_ptr<MainQueue> queue);
  ~Tooltips() override;
  Tooltips(const Tooltips&) = delete;
  Tooltips& operator=(const Tooltips&) = delete;

  /// The engine's instance; called by QML.
  static Tooltips* create(QQmlEngine* engine, QJSEngine* scriptEngine);

  QString text() const { return text_; }
  QQuickItem* target() const { return target_; }

  Q_INVOKABLE void setHovered(QQuickItem* item, const QString& text, bool isHovered);

  /// Called when a mouse button or a key is pressed, and when the panel is hidden.
  Q_INVOKABLE void hide();

signals:
  void changed();

private:
  void show(const QString& text);

  std::shared_ptr<MainQueue> queue_;
  MainQueue::WorkItem pending_ = 0;
  QPointer<QQuickItem> hovered_;
  QPointer<QQuickItem> target_;
  QString text_;
  bool isShown_ = false; // still true after the target was deleted
};

} // namespace tamberline
