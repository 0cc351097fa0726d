// Values of a dump within limits. Dumps hold what adapters, cables and devices say; a value that no
// machine can have counts as absent.
#pragma once

#include "registry/property_list.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

namespace tamberline {

inline std::optional<std::int64_t> within(std::optional<std::int64_t> value, std::int64_t min,
                                          std::int64_t max) {
  return value && *value >= min && *value <= max ? value : std::nullopt;
}

inline std::optional<double> dividedBy(std::optional<std::int64_t> value, double divisor) {
  return value ? std::optional(static_cast<double>(*value) / divisor) : std::nullopt;
}

/// A number of thousandths, more than none and at most `max` whole units.
inline std::optional<double> thousandthsMember(PropertyListValue entry, std::string_view key,
                                               std::int64_t max) {
  constexpr std::int64_t thousand = 1000;
  return dividedBy(within(entry.member(key).integer(), 1, max * thousand), thousand);
}

template <typename Value, std::size_t count>
using WordTable = std::array<std::pair<std::string_view, Value>, count>;

/// What a word stands for; absent for an unknown word and for another type.
template <typename Value, std::size_t count>
std::optional<Value> wordMember(PropertyListValue entry, std::string_view key,
                                const WordTable<Value, count>& table) {
  const std::optional<std::string> word = entry.member(key).text();
  for (const auto& [known, value] : table) {
    if (word == known) {
      return value;
    }
  }
  return std::nullopt;
}

} // namespace tamberline
