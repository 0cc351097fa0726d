#pragma once

#include "panel/panel_context.h"

#include <QQuickView>

#include <functional>

namespace tamberline {

/// The window that shows the panel's content, PanelSize::width wide. `context` must outlive it.
class PanelWindow final : public QQuickView {
  Q_OBJECT

public:
  enum class Kind : unsigned char {
    ordinary, // has a frame; stays where it is
    attached, // belongs to a tray icon; has no frame
  };

  PanelWindow(PanelContext& context, Kind kind);

protected:
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

private:
  void centerContent();
  void handleUnusedKey(QKeyEvent& event);
  void escape();

  PanelContext& context_;
};

} // namespace tamberline
