#include "comparison/item_matching.h"

#include <deque>
#include <map>
#include <string>
#include <utility>

namespace tamberline {
namespace {

using Indexes = std::deque<std::size_t>;

std::map<std::string, Indexes> byIdentity(const Inventory& inventory) {
  std::map<std::string, Indexes> items;
  for (std::size_t index = 0; index < inventory.size(); ++index) {
    if (std::string identity = identityOf(inventory[index]); !identity.empty()) {
      items[std::move(identity)].push_back(index);
    }
  }
  return items;
}

std::optional<std::size_t> taken(Indexes& indexes,
                                 const std::vector<std::optional<std::size_t>>& used) {
  while (!indexes.empty()) {
    const std::size_t index = indexes.front();
    indexes.pop_front();
    if (!used.at(index)) {
      return index;
    }
  }
  return std::nullopt;
}

} // namespace

ItemMatching::ItemMatching(const Inventory& before, const Inventory& after)
    : after_(before.size()), before_(after.size()) {
  matchByIdentity(before, after);
  matchByPlace(before, after);
}

void ItemMatching::match(std::size_t before, std::size_t after) {
  after_.at(before) = after;
  before_.at(after) = before;
}

void ItemMatching::matchByIdentity(const Inventory& before, const Inventory& after) {
  std::map<std::pair<std::string, std::string>, Indexes> sameIdentityAndPlace;
  std::map<std::string, Indexes> sameIdentity = byIdentity(after);
  for (const auto& [identity, indexes] : sameIdentity) {
    for (const std::size_t index : indexes) {
      sameIdentityAndPlace[{identity, after[index].id}].push_back(index);
    }
  }
  const std::map<std::string, Indexes> itemsBefore = byIdentity(before);
  for (const auto& [identity, indexes] : itemsBefore) {
    for (const std::size_t index : indexes) {
      const auto found = sameIdentityAndPlace.find({identity, before[index].id});
      if (found != sameIdentityAndPlace.end()) {
        if (const auto other = taken(found->second, before_)) {
          match(index, *other);
        }
      }
    }
  }
  for (const auto& [identity, indexes] : itemsBefore) {
    const auto found = sameIdentity.find(identity);
    for (const std::size_t index : indexes) {
      if (found == sameIdentity.end() || after_.at(index)) {
        continue;
      }
      if (const auto other = taken(found->second, before_)) {
        match(index, *other);
      }
    }
  }
}

/// Items are listed from the top down, so what is above an item is matched before it.
void ItemMatching::matchByPlace(const Inventory& before, const Inventory& after) {
  std::map<std::pair<std::optional<std::size_t>, std::string>, Indexes> byPlace;
  for (std::size_t index = 0; index < after.size(); ++index) {
    if (!before_.at(index)) {
      byPlace[{after[index].parent, after[index].localKey}].push_back(index);
    }
  }
  for (std::size_t index = 0; index < before.size(); ++index) {
    const std::optional<std::size_t> parent = before[index].parent;
    const bool isParentGone = parent && !after_.at(*parent);
    if (after_.at(index) || isParentGone) {
      continue;
    }
    const auto found =
        byPlace.find({parent ? after_.at(*parent) : std::nullopt, before[index].localKey});
    if (found != byPlace.end()) {
      if (const auto other = taken(found->second, before_)) {
        match(index, *other);
      }
    }
  }
}

} // namespace tamberline
