#include "comparison/comparison.h"

#include "comparison/item_matching.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace tamberline {
namespace {

using Kind = Change::Kind;
using Unit = Change::Unit;

/// Measurements are never quite the same twice.
constexpr double minMeasuredDifferenceWatts = 0.5;

struct Quantity {
  Unit unit = Unit::none;
  Kind whenMore = Kind::faster;
  Kind whenLess = Kind::slower;
  double minDifference = 0;
};

/// Buses come and go with the device that they are in.
bool isThing(const InventoryItem& item) {
  return item.kind != InventoryItem::Kind::usbBus || !item.parent;
}

class Comparison {
public:
  Comparison(const Inventory& before, const Inventory& after)
      : before_(before), after_(after), matching_(before, after) {}

  std::vector<Change> changes() {
    for (std::size_t index = 0; index < after_.size(); ++index) {
      if (const auto earlier = matching_.before(index)) {
        compare(*earlier, index);
      } else if (isThing(after_[index])) {
        add(Kind::came, after_, after_[index]);
      }
    }
    for (std::size_t index = 0; index < before_.size(); ++index) {
      if (!matching_.after(index) && isThing(before_[index])) {
        add(Kind::went, before_, before_[index]);
      }
    }
    return std::move(changes_);
  }

private:
  Change& add(Kind kind, const Inventory& inventory, const InventoryItem& item) {
    changes_.push_back({.kind = kind, .item = item, .place = placeOf(inventory, item)});
    return changes_.back();
  }

  void compare(std::size_t earlier, std::size_t index) {
    const InventoryItem& before = before_[earlier];
    const InventoryItem& after = after_[index];
    if (hasMoved(before, after)) {
      add(Kind::moved, after_, after).placeBefore = placeOf(before_, before);
    }
    compareNumbers(before.speedGbps, after.speedGbps, after, {.unit = Unit::gbps});
    compareNumbers(before.ratedMa, after.ratedMa, after,
                   {Unit::milliamperes, Kind::drawsMore, Kind::drawsLess});
    compareNumbers(before.measuredWatts, after.measuredWatts, after,
                   {Unit::watts, Kind::drawsMore, Kind::drawsLess, minMeasuredDifferenceWatts});
    compareNumbers(before.ratedWatts, after.ratedWatts, after,
                   {Unit::watts, Kind::suppliesMore, Kind::suppliesLess});
    compareVolumes(before, after);
  }

  bool hasMoved(const InventoryItem& before, const InventoryItem& after) const {
    const std::optional<std::size_t> parent =
        before.parent ? matching_.after(*before.parent) : std::nullopt;
    const bool isParentGone = before.parent && !parent;
    return isParentGone || parent != after.parent;
  }

  template <typename Number>
  void compareNumbers(const std::optional<Number>& before, const std::optional<Number>& after,
                      const InventoryItem& item, const Quantity& quantity) {
    if (!before || !after || *before == *after) {
      return;
    }
    const auto from = static_cast<double>(*before);
    const auto to = static_cast<double>(*after);
    if (std::abs(to - from) < quantity.minDifference) {
      return;
    }
    Change& change = add(to > from ? quantity.whenMore : quantity.whenLess, after_, item);
    change.unit = quantity.unit;
    change.before = from;
    change.after = to;
  }

  void compareVolumes(const InventoryItem& before, const InventoryItem& after) {
    const auto addMissing = [&](Kind kind, const std::vector<InventoryVolume>& volumes,
                                const std::vector<InventoryVolume>& others) {
      for (const InventoryVolume& volume : volumes) {
        if (std::find(others.begin(), others.end(), volume) == others.end()) {
          add(kind, after_, after).volume = volume;
        }
      }
    };
    addMissing(Kind::mounted, after.volumes, before.volumes);
    addMissing(Kind::unmounted, before.volumes, after.volumes);
  }

  const Inventory& before_;
  const Inventory& after_;
  ItemMatching matching_;
  std::vector<Change> changes_;
};

} // namespace

std::vector<Change> comparisonOf(const Inventory& before, const Inventory& after) {
  return Comparison(before, after).changes();
}

} // namespace tamberline
