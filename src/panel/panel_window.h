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

  enum class Corners : unsigned char {
    square,
    round, // of an attached panel, on a desktop that blends windows
  };

  struct Style {
    Kind kind = Kind::ordinary;
    Corners corners = Corners::square;

    bool operator==(const Style&) const = default;
  };

  PanelWindow(PanelContext& context, Style style);

protected:
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

private:
  void setSurface(Corners corners);
  void centerContent();
  void handleUnusedKey(QKeyEvent& event);
  void escape();

  PanelContext& context_;
};

} // namespace tamberline
