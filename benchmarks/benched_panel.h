#pragma once

#include "app/panel_shell.h"
#include "async/qt_main_queue.h"
#include "scanner/port_scanner.h"

#include <QQuickItem>

#include <filesystem>
#include <functional>
#include <memory>

namespace tamberline {

/// The real panel over a real scanner, with saved reports for tools. Open, and its first scan done,
/// when it is made. Needs an application object.
class BenchedPanel {
public:
  explicit BenchedPanel(const std::filesystem::path& reports);
  BenchedPanel(const BenchedPanel&) = delete;
  BenchedPanel& operator=(const BenchedPanel&) = delete;
  ~BenchedPanel() = default;

  PanelShell& shell() { return shell_; }
  PanelController& controller() { return *shell_.context().panel(); }
  const PortScanner& scanner() const { return *scanner_; }

  /// The item whose children are the lines that the list has made.
  QQuickItem* linesOfList();

  /// A whole scan, until everything that follows from it is done.
  void scan();

  /// Returns when the first frame after the action was rendered.
  void renderAfter(const std::function<void()>& action);

  /// Lets animations and the window's size come to an end.
  void settle();

private:
  void finishScan();

  MainQueueScope scope_;
  std::shared_ptr<PortScanner> scanner_;
  PanelShell shell_;
  int frames_ = 0;
};

} // namespace tamberline
