#include "benched_panel.h"

#include "platform/saved/saved_reports.h"
#include "scanner/port_event_source.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

#include <chrono>

namespace tamberline {
namespace {

/// Longer than any animation of the panel.
constexpr std::chrono::milliseconds restTime{300};

} // namespace

BenchedPanel::BenchedPanel(const std::filesystem::path& reports)
    : scanner_(
          PortScanner::create({.acquisition = {.machine = std::make_shared<SavedReports>(reports),
                                               .queue = scope_.queue()},
                               .events = std::make_shared<SilentEventSource>()})),
      shell_({.scanner = scanner_, .queue = scope_.queue()}, {}) {
  shell_.open();
  QObject::connect(shell_.window(), &QQuickWindow::frameSwapped, shell_.window(),
                   [this] { ++frames_; });
  finishScan();
}

QQuickItem* BenchedPanel::linesOfList() {
  const ScrollProxy* const proxy = shell_.context().search()->scrollProxy();
  const auto* const list = proxy->property("list").value<QQuickItem*>();
  return list->property("contentItem").value<QQuickItem*>();
}

void BenchedPanel::scan() {
  controller().scan();
  finishScan();
}

void BenchedPanel::finishScan() {
  while (scanner_->isScanning.get() || !scanner_->lastScanned.get()) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  QCoreApplication::processEvents();
}

void BenchedPanel::renderAfter(const std::function<void()>& action) {
  const int seen = frames_;
  action();
  while (frames_ == seen) {
    QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
}

void BenchedPanel::settle() {
  QEventLoop loop;
  QTimer::singleShot(restTime, &loop, &QEventLoop::quit);
  loop.exec();
}

} // namespace tamberline
