#pragma once

#include "async/main_queue.h"
#include "scanner/port_scanner.h"

#include <QObject>
#include <QString>
#include <QtQml/qqmlregistration.h>

#include <chrono>
#include <functional>
#include <memory>

class QJSEngine;
class QQmlEngine;

namespace tamberline {

/// The text about how long ago the last scan was. It is updated only while the panel is visible;
/// otherwise no timer runs. Main thread only.
class UpdatedText final : public QObject {
  Q_OBJECT
  QML_NAMED_ELEMENT(Updated)
  QML_SINGLETON

  /// Empty before the first successful scan.
  Q_PROPERTY(QString text READ text NOTIFY textChanged)

public:
  using Clock = std::function<std::chrono::system_clock::time_point()>;

  UpdatedText(std::shared_ptr<PortScanner> scanner, std::shared_ptr<MainQueue> queue, Clock now);
  ~UpdatedText() override;
  UpdatedText(const UpdatedText&) = delete;
  UpdatedText& operator=(const UpdatedText&) = delete;

  /// The engine's instance; called by QML.
  static UpdatedText* create(QQmlEngine* engine, QJSEngine* scriptEngine);

  QString text() const { return text_; }
  void setPanelVisible(bool isVisible);

signals:
  void textChanged();

private:
  void tick();

  std::shared_ptr<PortScanner> scanner_;
  std::shared_ptr<MainQueue> queue_;
  Clock now_;
  QString text_;
  bool isPanelVisible_ = false;
  MainQueue::WorkItem nextTick_ = 0;
  Observation lastScannedObservation_;
};

} // namespace tamberline
