#pragma once

#include "app/panel_shell.h"
#include "async/main_queue.h"
#include "replay_options.h"
#include "scanner/port_scanner.h"

#include <QCoro/QCoroTask>

#include <functional>
#include <memory>

namespace tamberline {

/// Opens the panel and, after its first scan, applies the options. If they ask for a picture, waits
/// for `hasPlayed` before, writes it once the panel's size is stable, and quits the application;
/// with status 1, after reporting it, if the file cannot be written.
QCoro::Task<> showPanel(PanelShell* shell, std::shared_ptr<PortScanner> scanner,
                        std::function<bool()> hasPlayed, std::shared_ptr<MainQueue> queue,
                        ReplayOptions options);

} // namespace tamberline
