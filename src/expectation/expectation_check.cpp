#include "expectation/expectation_check.h"

#include "base/text.h"

#include <algorithm>
#include <utility>

namespace tamberline {
namespace {

/// Whether two texts such as "0x5AC" and "0x05ac" are the same number.
bool isSameIdentifier(const std::string& left, const std::string& right) {
  const auto numberOf = [](const std::string& text) {
    return text.starts_with("0x") ? parseHexadecimal(std::string_view(text).substr(2))
                                  : std::nullopt;
  };
  const std::optional<std::int64_t> number = numberOf(left);
  return number ? number == numberOf(right) : left == right;
}

bool isMeant(const Expectation& expectation, const InventoryItem& item) {
  return item.isDevice() &&
         (!expectation.name || trimmed(*expectation.name) == trimmed(item.name)) &&
         (!expectation.vendorID || isSameIdentifier(*expectation.vendorID, item.vendorID)) &&
         (!expectation.productID || isSameIdentifier(*expectation.productID, item.productID)) &&
         (!expectation.serialNumber || *expectation.serialNumber == item.serialNumber);
}

std::vector<Shortfall> shortfallsOf(const Expectation& expectation, const InventoryItem& item) {
  std::vector<Shortfall> shortfalls;
  if (expectation.port && expectation.port != item.portNumber) {
    shortfalls.push_back({Shortfall::Kind::port});
  }
  if (expectation.minGbps && item.speedGbps.value_or(0) < *expectation.minGbps) {
    shortfalls.push_back({Shortfall::Kind::speed});
  }
  for (const std::string& name : expectation.volumes) {
    const bool isMounted =
        std::any_of(item.volumes.begin(), item.volumes.end(),
                    [&](const InventoryVolume& volume) { return volume.name == name; });
    if (!isMounted) {
      shortfalls.push_back({Shortfall::Kind::volume, name});
    }
  }
  return shortfalls;
}

/// Shares devices out among expectations: the usual search for a largest matching, which lets an
/// earlier expectation change to another device if that frees the only one of a later expectation.
class Sharing {
public:
  Sharing(const Inventory& inventory, const std::vector<Expectation>& expectations)
      : inventory_(inventory), expectations_(expectations), itemOf_(expectations.size()),
        userOf_(inventory.size()) {}

  std::vector<std::optional<std::size_t>> shareOut() {
    for (const bool mustMeet : {true, false}) {
      for (std::size_t index = 0; index < expectations_.size(); ++index) {
        if (!itemOf_[index]) {
          isTried_.assign(inventory_.size(), false);
          find(index, mustMeet);
        }
      }
    }
    return std::move(itemOf_);
  }

private:
  bool fits(std::size_t expectation, std::size_t item, bool mustMeet) const {
    return isMeant(expectations_[expectation], inventory_[item]) &&
           (!mustMeet || shortfallsOf(expectations_[expectation], inventory_[item]).empty());
  }

  /// A device that meets its expectation is not taken away for one that it does not meet.
  bool find(std::size_t expectation, bool mustMeet) {
    return findFree(expectation, mustMeet) || (mustMeet && findUsed(expectation));
  }

  bool findFree(std::size_t expectation, bool mustMeet) {
    for (std::size_t item = 0; item < inventory_.size(); ++item) {
      if (!userOf_[item] && fits(expectation, item, mustMeet)) {
        give(expectation, item);
        return true;
      }
    }
    return false;
  }

  bool findUsed(std::size_t expectation) {
    for (std::size_t item = 0; item < inventory_.size(); ++item) {
      if (isTried_[item] || !fits(expectation, item, /*mustMeet=*/true)) {
        continue;
      }
      isTried_[item] = true;
      if (find(*userOf_[item], /*mustMeet=*/true)) {
        give(expectation, item);
        return true;
      }
    }
    return false;
  }

  void give(std::size_t expectation, std::size_t item) {
    userOf_[item] = expectation;
    itemOf_[expectation] = item;
  }

  const Inventory& inventory_;
  const std::vector<Expectation>& expectations_;
  std::vector<std::optional<std::size_t>> itemOf_;
  std::vector<std::optional<std::size_t>> userOf_;
  std::vector<bool> isTried_;
};

} // namespace

std::vector<CheckedExpectation> checkedAgainst(const Inventory& inventory,
                                               const std::vector<Expectation>& expectations) {
  const auto items = Sharing(inventory, expectations).shareOut();
  std::vector<CheckedExpectation> checked;
  for (std::size_t index = 0; index < expectations.size(); ++index) {
    const std::optional<std::size_t> item = items[index];
    checked.push_back(
        {expectations[index], item,
         item ? shortfallsOf(expectations[index], inventory[*item]) : std::vector<Shortfall>()});
  }
  return checked;
}

} // namespace tamberline
