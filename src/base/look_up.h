#pragma once

#include <map>
#include <optional>

namespace tamberline {

/// A copy of what a table has under a key; absent when it has nothing there.
template <typename Key, typename Value>
std::optional<Value> lookUp(const std::map<Key, Value>& table, const Key& key) {
  const auto found = table.find(key);
  return found == table.end() ? std::nullopt : std::optional(found->second);
}

} // namespace tamberline
