#include "app/panel_frame.h"

#include "panel/panel_size.h"

#include <QScreen>

#include <algorithm>

namespace tamberline {
namespace {

constexpr int fixedHeight = 720;
/// For a bar of the desktop, the window's title bar and a small margin, because the desktop does
/// not report them.
constexpr int barsAndTitle = 128;
constexpr int anySize = 16384; // the window system treats this as no limit

} // namespace

std::optional<double> PanelWindowFrame::visibleScreenHeight() const {
  if (!isBoundByScreen_ || window_.screen() == nullptr) {
    return std::nullopt;
  }
  return freeHeight_.value_or(freePlace_(*window_.screen()).height());
}

void PanelWindowFrame::takeFixedHeight() {
  const int most = window_.screen() == nullptr
                       ? fixedHeight
                       : freePlace_(*window_.screen()).height() - barsAndTitle;
  fixSize(std::max(qRound(PanelSize::minimumHeight), std::min(fixedHeight, most)));
}

void PanelWindowFrame::releaseSize() {
  window_.setMinimumSize({});
  window_.setMaximumSize({anySize, anySize});
}

void PanelWindowFrame::keepOnScreen() {
  if (!window_.isVisible() || !isBoundByScreen_ || window_.screen() == nullptr) {
    return;
  }
  const QRect available = freePlace_(*window_.screen());
  const QRect frame = window_.frameGeometry();
  const int overhang = frame.bottom() - available.bottom();
  if (overhang > 0 && frame.top() > available.top()) {
    window_.setFramePosition({frame.x(), std::max(available.top(), frame.top() - overhang)});
  }
}

void PanelWindowFrame::fixSize(int height) {
  const QSize size(qRound(PanelSize::width), height);
  window_.setMinimumSize(size);
  window_.setMaximumSize(size);
  window_.resize(size);
}

} // namespace tamberline
