#pragma once

#include <optional>

namespace tamberline {

/// A copy of what a map has under a key; absent when it has nothing there.
template <typename Map>
std::optional<typename Map::mapped_type> lookUp(const Map& map, const typename Map::key_type& key) {
  const auto found = map.find(key);
  return found == map.end() ? std::nullopt : std::optional(found->second);
}

} // namespace tamberline
