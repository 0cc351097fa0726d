#include "panel/row_pulses.h"

#include <chrono>
#include <utility>

namespace tamberline {
namespace {

constexpr std::chrono::milliseconds throbDuration{5000};
constexpr std::chrono::milliseconds fadeDuration{400};

} // namespace

RowPulses::RowPulses(std::shared_ptr<PortScanner> scanner, std::shared_ptr<MainQueue> queue,
                     std::function<void()> onChange)
    : scanner_(std::move(scanner)), queue_(std::move(queue)), onChange_(std::move(onChange)) {}

RowPulses::~RowPulses() {
  for (const auto& [id, step] : nextSteps_) {
    queue_->cancel(step);
  }
}

void RowPulses::start(const std::string& id) {
  cancel(id);
  phases_[id] = Pulse::Throbbing;
  nextSteps_[id] = queue_->postLater(throbDuration, [this, id] { enter(id, Pulse::Fading); });
}

void RowPulses::cancel(const std::string& id) {
  if (const auto step = nextSteps_.find(id); step != nextSteps_.end()) {
    queue_->cancel(step->second);
    nextSteps_.erase(step);
  }
  phases_.erase(id);
}

void RowPulses::enter(const std::string& id, Pulse phase) {
  phases_[id] = phase;
  nextSteps_[id] = queue_->postLater(fadeDuration, [this, id] { end(id); });
  onChange_();
}

void RowPulses::end(const std::string& id) {
  nextSteps_.erase(id);
  phases_.erase(id);
  if (scanner_->highlightedNodeID.get() == id) {
    scanner_->highlightedNodeID.set(std::nullopt);
  }
  onChange_();
}

} // namespace tamberline
