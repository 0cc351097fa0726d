#include "panel/panel_sizing.h"

#include "controls/engine_objects.h"
#include "views/panel_heights.h"

#include <QPointer>
#include <QQmlEngine>

#include <algorithm>
#include <utility>

namespace tamberline {

PanelSizing* PanelSizing::create(QQmlEngine* engine, QJSEngine* /*scriptEngine*/) {
  return engineObject<PanelSizing>(*engine);
}

PanelSizing::PanelSizing(std::shared_ptr<MainQueue> queue) : queue_(std::move(queue)) {}

void PanelSizing::setSearching(bool isSearching) {
  if (isSearching == isSearching_) {
    return;
  }
  isSearching_ = isSearching;
  emit changed();
  combineSoon();
}

void PanelSizing::setScreenHeight(std::optional<double> points) {
  if (points != screenHeight_) {
    screenHeight_ = points;
    emit changed();
  }
}

void PanelSizing::setGivenHeight(std::optional<double> points) {
  if (points != givenHeight_) {
    givenHeight_ = points;
    emit changed();
  }
}

void PanelSizing::measure(Channel channel, const QObject* source, double height) {
  std::map<const QObject*, double>& heights =
      channel == Channel::list ? listHeights_ : chromeHeights_;
  if (height > 0) {
    heights[source] = height;
  } else {
    heights.erase(source);
  }
  combineSoon();
}

double PanelSizing::windowTotalHeight() const {
  return tamberline::windowTotalHeight(chromeBaseline_, listHeight_, screenHeight_);
}

double PanelSizing::listAreaHeight() const {
  return tamberline::listAreaHeight(shownHeight(), chromeHeight_);
}

bool PanelSizing::listScrolls() const {
  constexpr double rounding = 1;
  return listHeight_ > listAreaHeight() + rounding;
}

double PanelSizing::maxListAreaHeight() const {
  constexpr double endless = 1e6;
  return tamberline::listAreaHeight(
      tamberline::windowTotalHeight(chromeBaseline_, endless, screenHeight_), chromeBaseline_);
}

double PanelSizing::maxSuggestionsHeight() const {
  return tamberline::maxSuggestionsHeight(shownHeight(), chromeBaseline_);
}

/// Through the queue: many measurements arrive during one layout pass, and combining them starts
/// another pass.
void PanelSizing::combineSoon() {
  if (pendingCombination_) {
    return;
  }
  pendingCombination_ = std::make_shared<PendingCombination>();
  queue_->post([this, pending = std::weak_ptr(pendingCombination_)] {
    if (!pending.expired()) {
      pendingCombination_.reset();
      combine();
    }
  });
}

void PanelSizing::combine() {
  double greatest = 0;
  for (const auto& [source, height] : listHeights_) {
    greatest = std::max(greatest, height);
  }
  double sum = 0;
  for (const auto& [source, height] : chromeHeights_) {
    sum += height;
  }
  const double baseline = isSearching_ ? chromeBaseline_ : sum;
  if (greatest != listHeight_ || sum != chromeHeight_ || baseline != chromeBaseline_) {
    listHeight_ = greatest;
    chromeHeight_ = sum;
    chromeBaseline_ = baseline;
    emit changed();
  }
}

/// Uses `measuredBy_`, because `qmlEngine` may already return null.
HeightKey::~HeightKey() {
  if (measuredBy_ != nullptr) {
    measuredBy_->measure(channel_, this, 0);
  }
}

void HeightKey::setHeight(double height) {
  if (height == height_) {
    return;
  }
  height_ = height;
  if (PanelSizing* const all = sizing()) {
    all->measure(channel_, this, height);
    measuredBy_ = all;
  }
  emit heightChanged();
}

/// Null while the engine is being destroyed.
PanelSizing* HeightKey::sizing() const {
  QQmlEngine* const engine = qmlEngine(this);
  return engine == nullptr ? nullptr : engineObject<PanelSizing>(*engine);
}

} // namespace tamberline
