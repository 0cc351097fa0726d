#pragma once

#include "app/panel_shell.h"
#include "async/main_queue.h"
#include "replay_options.h"
#include "scanner/port_scanner.h"

#include <QCoro/QCoroTask>

#include <memory>

namespace tamberline {

/// Opens the panel and, when its first scan is over, does to it what the options say. When they
/// wish for a picture, writes it as soon as the panel stands still, and quits the application; with
/// status 1, after saying why, when the file cannot be written.
QCoro::Task<> showPanel(PanelShell* shell, std::shared_ptr<PortScanner> scanner,
                        std::shared_ptr<MainQueue> queue, ReplayOptions options);

} // namespace tamberline
