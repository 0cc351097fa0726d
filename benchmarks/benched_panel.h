#pragma once

#include "app/panel_shell.h"
#include "async/qt_main_queue.h"
#include "scanner/port_scanner.h"

#include <QQuickItem>

#include <filesystem>
#include <functional>
#include <memory>

namespace tamberline {

/// The real panel on a real scanner, with saved reports instead of tools. It is open, and its first
/// scan is finished, once it is constructed. Needs an application object.
class BenchedPanel {
public:
  explicit BenchedPanel(const std::filesystem::path& reports);
  BenchedPanel(const BenchedPanel&) = delete;
  BenchedPanel& operator=(const BenchedPanel&) = delete;
  ~BenchedPanel() = default;

  PanelShell& shell() { return shell_; }
  PanelController& controller() { return *shell_.context().panel(); }
  const PortScanner& scanner() const { return *scanner_; }

  /// The item whose children are the delegates that the list has created.
  QQuickItem* linesOfList();

  /// Runs a whole scan and everything that follows from it.
  void scan();

  /// Returns after the first frame since the action has been rendered.
  void renderAfter(const std::function<void()>& action);

  /// Waits until animations and changes of the window's size have ended.
  void settle();

private:
  void finishScan();

  MainQueueScope scope_;
  std::shared_ptr<PortScanner> scanner_;
  PanelShell shell_;
  int frames_ = 0;
};

} // namespace tamberline
