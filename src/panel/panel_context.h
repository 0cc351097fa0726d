#pragma once

#include "async/main_queue.h"
#include "controls/hints.h"
#include "controls/popover.h"
#include "controls/theme.h"
#include "panel/panel_controller.h"
#include "panel/panel_sizing.h"
#include "panel/search_controller.h"
#include "panel/status_colors.h"
#include "panel/updated_text.h"
#include "scanner/port_scanner.h"
#include "symbols/symbol_image.h"

#include <chrono>
#include <functional>
#include <memory>

class QQmlEngine;

namespace tamberline {

/// What a panel is made of: the state behind its QML, one object for each singleton that the QML
/// knows. Outlives the engine. Main thread only.
class PanelContext {
public:
  struct Outside {
    std::shared_ptr<PortScanner> scanner;
    std::shared_ptr<MainQueue> queue;
    std::function<std::chrono::system_clock::time_point()> now = std::chrono::system_clock::now;
    double fontScale = 1;
    PanelActions actions = {};
  };

  explicit PanelContext(Outside outside);

  /// Hands the objects to the engine, whose QML finds them by their types.
  void attachTo(QQmlEngine& engine);

  PanelController* panel() { return &panel_; }
  SearchController* search() { return &search_; }
  PanelSizing* sizing() { return &sizing_; }
  Theme* theme() { return &theme_; }
  StatusColors* statusColors() { return &statusColors_; }
  Hints* hints() { return &hints_; }
  Popover* popover() { return &popover_; }
  SymbolImageCache& symbols() { return symbols_; }
  UpdatedText* updated() { return &updated_; }

private:
  SymbolImageCache symbols_;
  Theme theme_;
  StatusColors statusColors_{theme_};
  PanelSizing sizing_;
  Hints hints_;
  Popover popover_{nullptr};
  UpdatedText updated_;
  PanelController panel_;
  SearchController search_;
};

} // namespace tamberline
