#include "answers/power_answers.h"

#include "i18n/loc.h"

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tamberline {
namespace {

/// A battery that is not charging above this may be held there by firmware that does not say so.
constexpr std::int64_t lowestUndeclaredLimitPercent = 55;
/// Below these a battery is idle: the values of gauges vary around 0.
constexpr std::int64_t noticeableMa = 150;
constexpr double noticeableWatts = 2;
constexpr double muchWeaker = 0.75;
constexpr double nearlyThatMuch = 1.05;

const TreeNode* adapterIn(std::span<const TreeNode> nodes) {
  for (const TreeNode& node : nodes) {
    if (std::holds_alternative<TreeNode::Charger>(node.kind)) {
      return &node;
    }
    const auto child =
        std::find_if(node.children.begin(), node.children.end(), [](const TreeNode& candidate) {
          return std::holds_alternative<TreeNode::Charger>(candidate.kind);
        });
    if (child != node.children.end()) {
      return &*child;
    }
  }
  return nullptr;
}

/// The charge from which on the user's limits keep the battery from charging; absent without any.
/// Computers without limits may report 0 and 100.
std::optional<std::int64_t> limitPercent(const ChargingState& state) {
  if (state.limitStartPercent.value_or(0) > 0) {
    return state.limitStartPercent; // charging starts only below
  }
  return state.limitEndPercent.value_or(100) < 100 ? state.limitEndPercent : std::nullopt;
}

/// The user or the system wants the battery as it is.
bool isHeldOnPurpose(const ChargingState& state) {
  const ChargingReasons& reasons = state.reasons;
  const bool isHeld = reasons.contains(ChargingReasons::isHeldAtLimit) ||
                      reasons.contains(ChargingReasons::softwareInhibits);
  const bool isChosen = state.behaviour == "inhibit-charge" ||
                        state.behaviour == "inhibit-charge-awake" ||
                        state.behaviour == "force-discharge";
  const std::optional<std::int64_t> limit = limitPercent(state);
  const bool isWithinLimit = limit && state.chargePercent && *state.chargePercent >= *limit;
  return isHeld || isChosen || isWithinLimit;
}

bool isFull(const ChargingState& state) {
  constexpr std::int64_t nearlyFullPercent = 95;
  return state.isFullyCharged.value_or(false) ||
         state.reasons.contains(ChargingReasons::batteryIsFull) ||
         state.chargePercent.value_or(0) >= nearlyFullPercent;
}

bool isDraining(const ChargingState& state) {
  if (state.isCharging.value_or(false)) {
    return false;
  }
  return state.batteryWatts ? *state.batteryWatts <= -noticeableWatts
                            : state.batteryMa.value_or(0) <= -noticeableMa;
}

bool isTakingCharge(const ChargingState& state) {
  return state.batteryMa.value_or(0) >= noticeableMa ||
         state.batteryWatts.value_or(0) >= noticeableWatts;
}

class PowerSearch {
public:
  PowerSearch(const AnswerInputs& inputs, const TreeNode& adapter, AnswerList& answers)
      : state_(*inputs.charging), controllers_(inputs.hpmPorts), node_(adapter),
        charger_(std::get<TreeNode::Charger>(adapter.kind).charger), answers_(answers) {}

  void run() {
    const bool hasBattery = state_.hasBattery.value_or(state_.chargePercent.has_value());
    const bool isConnected = state_.isExternalPowerConnected.value_or(charger_.isConnected);
    const bool drains = isDraining(state_);
    if (!isConnected || !hasBattery || isHeldOnPurpose(state_) || (isFull(state_) && !drains)) {
      return;
    }
    findWeakSupply();
    if (drains) {
      addDraining();
    } else if (isStuck()) {
      addNotCharging();
    }
  }

private:
  bool isStuck() const {
    return state_.isCharging && !*state_.isCharging && !isTakingCharge(state_) &&
           state_.chargePercent && *state_.chargePercent < lowestUndeclaredLimitPercent;
  }

  void addDraining() {
    const std::optional<Shortage> shortage = shortageOfSupply();
    const bool isMeasured = state_.batteryWatts.has_value();
    add({.kind = AnswerKind::draining,
         .weight = AnswerWeight::attention,
         .limitingPart = shortage ? shortage->part : LimitingPart::node,
         .facts = {.actualWatts = isMeasured ? std::optional(-*state_.batteryWatts) : std::nullopt,
                   .possibleWatts =
                       shortage ? std::optional(shortage->possibleWatts) : std::nullopt}});
  }

  void addNotCharging() {
    add({.kind = AnswerKind::notCharging,
         .weight = AnswerWeight::attention,
         .limitingPart = LimitingPart::none,
         .facts = {.chargePercent = state_.chargePercent}});
  }

  /// What gives the computer less than it takes: the cable or the adapter.
  struct Shortage {
    LimitingPart part;
    double actualWatts;
    double possibleWatts;
  };

  std::optional<Shortage> shortageOfSupply() const {
    const std::optional<double> wanted = state_.maxIntakeWatts;
    const std::optional<double> best = bestOfferWatts();
    if (!wanted || !best) {
      return std::nullopt;
    }
    const double able = std::max(*best, ratedWatts());
    const double possible = std::min(able, *wanted);
    const std::optional<double> cable = cableWatts();
    if (cable && *cable < possible * muchWeaker && *best <= *cable * nearlyThatMuch) {
      return Shortage{LimitingPart::cable, *cable, possible};
    }
    return able < *wanted * muchWeaker ? std::optional(Shortage{LimitingPart::node, *best, *wanted})
                                       : std::nullopt;
  }

  void findWeakSupply() {
    const std::optional<Shortage> shortage = shortageOfSupply();
    if (!shortage) {
      return;
    }
    const bool isCable = shortage->part == LimitingPart::cable;
    add({.kind = isCable ? AnswerKind::weakPowerCable : AnswerKind::weakAdapter,
         .weight = isCable ? AnswerWeight::attention : AnswerWeight::note,
         .limitingPart = shortage->part,
         .facts = {.actualWatts = shortage->actualWatts,
                   .possibleWatts = shortage->possibleWatts}});
  }

  double ratedWatts() const {
    const double named = static_cast<double>(charger_.ratedWatts.value_or(0));
    return state_.adapter ? std::max(named, state_.adapter->ratedWatts.value_or(0)) : named;
  }

  const PortDetails* port() const {
    if (!state_.adapter || !state_.adapter->portNumber) {
      return nullptr;
    }
    const auto found =
        std::find_if(controllers_.begin(), controllers_.end(), [&](const HPMPort& candidate) {
          return candidate.portNumber == *state_.adapter->portNumber && !candidate.isMagSafe;
        });
    return found == controllers_.end() ? nullptr : &found->details;
  }

  std::optional<double> bestOfferWatts() const {
    if (state_.adapter && !state_.adapter->offers.empty()) {
      return maxWattsOf(state_.adapter->offers);
    }
    return port() == nullptr ? std::nullopt : maxWattsOf(port()->offers);
  }

  /// Without the extended range, which needs other cables anyway, power ends at 20 V.
  std::optional<double> cableWatts() const {
    constexpr double maxVolts = 20;
    constexpr double fullAmps = 5;
    const bool isWeak = port() != nullptr && port()->cable && port()->cable->maxAmps &&
                        *port()->cable->maxAmps < fullAmps;
    return isWeak ? std::optional(*port()->cable->maxAmps * maxVolts) : std::nullopt;
  }

  void add(Answer answer) {
    if (answer.limitingPart != LimitingPart::none) {
      answer.limitingNodeID = node_.id;
    }
    const bool hasName = !charger_.name.empty();
    answers_.add(node_, std::move(answer),
                 {.node = hasName ? charger_.name : std::string(Loc::powerAdapter())});
  }

  const ChargingState& state_;
  std::span<const HPMPort> controllers_;
  const TreeNode& node_;
  const ChargerInfo& charger_;
  AnswerList& answers_;
};

} // namespace

void findPowerAnswers(const AnswerInputs& inputs, AnswerList& answers) {
  const TreeNode* adapter = adapterIn(inputs.portTree);
  if (adapter != nullptr && inputs.charging != nullptr) {
    PowerSearch(inputs, *adapter, answers).run();
  }
}

} // namespace tamberline
