#pragma once

#include "async/main_queue.h"
#include "controls/motion.h"
#include "controls/popover.h"
#include "controls/theme.h"
#include "controls/tooltips.h"
#include "panel/answers_controller.h"
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

/// The state behind the panel's QML: the symbol images and one object for each QML singleton. Must
/// outlive the engine. Main thread only.
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

  /// Makes the objects available to the engine's QML, which finds them by type.
  void attachTo(QQmlEngine& engine);

  AnswersController* answers() { return &answers_; }
  PanelController* panel() { return &panel_; }
  SearchController* search() { return &search_; }
  PanelSizing* sizing() { return &sizing_; }
  Theme* theme() { return &theme_; }
  StatusColors* statusColors() { return &statusColors_; }
  Tooltips* tooltips() { return &tooltips_; }
  Popover* popover() { return &popover_; }
  Motion* motion() { return &motion_; }
  SymbolImageCache& symbols() { return symbols_; }
  UpdatedText* updated() { return &updated_; }

private:
  SymbolImageCache symbols_;
  Theme theme_;
  StatusColors statusColors_{theme_};
  PanelSizing sizing_;
  Tooltips tooltips_;
  Popover popover_{nullptr};
  Motion motion_{nullptr};
  UpdatedText updated_;
  AnswersController answers_; // before the rows, which show its answers
  PanelController panel_;
  SearchController search_;
};

} // namespace tamberline
