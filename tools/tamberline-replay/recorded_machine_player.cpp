#include "recorded_machine_player.h"

#include "platform/posix/command_line.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QKeyEvent>

#include <string>
#include <utility>

namespace tamberline {

RecordedMachinePlayer::RecordedMachinePlayer(std::unique_ptr<Playback> playback,
                                             std::shared_ptr<RecordedMachine> machine,
                                             std::shared_ptr<PortScanner> scanner,
                                             std::shared_ptr<MainQueue> queue)
    : playback_(std::move(playback)),
      scans_(*playback_, std::move(machine), std::move(scanner), std::move(queue)),
      observation_(playback_->observe([this] { printState(); })) {
  QCoreApplication::instance()->installEventFilter(this);
  printState();
  playback_->start();
}

bool RecordedMachinePlayer::eventFilter(QObject* /*watched*/, QEvent* event) {
  const bool isKey = event->type() == QEvent::KeyPress || event->type() == QEvent::ShortcutOverride;
  const auto* const press = isKey ? dynamic_cast<QKeyEvent*>(event) : nullptr;
  if (press == nullptr || press->modifiers() != Qt::ControlModifier) {
    return false;
  }
  const bool isOurs =
      press->key() == Qt::Key_P || press->key() == Qt::Key_N || press->key() == Qt::Key_B;
  if (isOurs && event->type() == QEvent::KeyPress) {
    takeKey(press->key());
  }
  return isOurs;
}

void RecordedMachinePlayer::takeKey(int key) {
  switch (key) {
  case Qt::Key_P:
    playback_->togglePause();
    break;
  case Qt::Key_N:
    playback_->stepForward();
    break;
  default:
    playback_->stepBack();
    break;
  }
}

/// In the machine's local time, without words.
void RecordedMachinePlayer::printState() const {
  const auto sinceEpoch = std::chrono::duration_cast<std::chrono::milliseconds>(
      playback_->step().time.time_since_epoch());
  const QString time = QDateTime::fromMSecsSinceEpoch(sinceEpoch.count())
                           .toString(QStringLiteral("yyyy-MM-dd HH:mm:ss.zzz"));
  const auto [index, isPaused] = playback_->state().get();
  printToStandardOutput(std::string(isPaused ? "⏸ " : "▶ ") + std::to_string(index + 1) + "/" +
                            std::to_string(playback_->stepCount()) + "  " + time.toStdString() +
                            "\n",
                        "tamberline-replay");
}

} // namespace tamberline
