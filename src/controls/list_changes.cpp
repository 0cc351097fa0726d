#include "controls/list_changes.h"

#include <algorithm>
#include <map>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace tamberline {
namespace {

/// Every view of the list must process each move, so starting over is faster than too many moves.
constexpr std::size_t maxMoves = 64;
constexpr std::size_t nowhere = static_cast<std::size_t>(-1);

/// For each key of `before`, its position in `after`, or `nowhere`.
std::vector<std::size_t> positionsAfter(const std::vector<std::string>& before,
                                        const std::vector<std::string>& after) {
  std::unordered_map<std::string_view, std::vector<std::size_t>> places;
  for (std::size_t index = after.size(); index-- > 0;) {
    places[after[index]].push_back(index);
  }
  std::vector<std::size_t> positions;
  positions.reserve(before.size());
  for (const std::string& key : before) {
    const auto found = places.find(key);
    if (found == places.end() || found->second.empty()) {
      positions.push_back(nowhere);
    } else {
      positions.push_back(found->second.back());
      found->second.pop_back();
    }
  }
  return positions;
}

/// From the end, so that a step does not shift the positions of the next.
void appendRemovals(const std::vector<std::size_t>& positions, std::vector<ListChange>& changes) {
  for (std::size_t end = positions.size(); end > 0;) {
    if (positions[end - 1] != nowhere) {
      --end;
      continue;
    }
    std::size_t first = end - 1;
    while (first > 0 && positions[first - 1] == nowhere) {
      --first;
    }
    changes.push_back({.kind = ListChange::Kind::remove, .first = first, .count = end - first});
    end = first;
  }
}

/// Sorts `kept` by moving runs forward; false if that takes too many moves.
bool appendMoves(std::vector<std::size_t> kept, std::vector<ListChange>& changes) {
  std::vector<std::size_t> sorted = kept;
  std::sort(sorted.begin(), sorted.end());
  std::size_t moves = 0;
  for (std::size_t target = 0; target < kept.size(); ++target) {
    if (kept[target] == sorted[target]) {
      continue;
    }
    if (++moves > maxMoves) {
      return false;
    }
    const auto begin = kept.begin() + static_cast<std::ptrdiff_t>(target);
    const auto run = std::find(begin, kept.end(), sorted[target]);
    const auto first = static_cast<std::size_t>(run - kept.begin());
    std::size_t count = 1;
    while (first + count < kept.size() && kept[first + count] == sorted[target + count]) {
      ++count;
    }
    changes.push_back(
        {.kind = ListChange::Kind::move, .first = first, .count = count, .to = target});
    std::rotate(begin, run, run + static_cast<std::ptrdiff_t>(count));
  }
  return true;
}

/// `kept` contains the positions in the new list that are already filled, in ascending order.
void appendInsertions(const std::vector<std::size_t>& kept, std::size_t size,
                      std::vector<ListChange>& changes) {
  std::size_t next = 0;
  const auto fillUpTo = [&](std::size_t end) {
    if (end > next) {
      changes.push_back(
          {.kind = ListChange::Kind::insert, .first = next, .count = end - next, .to = next});
    }
  };
  for (const std::size_t position : kept) {
    fillUpTo(position);
    next = position + 1;
  }
  fillUpTo(size);
}

std::vector<ListChange> startOver(std::size_t before, std::size_t after) {
  return {{.kind = ListChange::Kind::remove, .first = 0, .count = before},
          {.kind = ListChange::Kind::insert, .first = 0, .count = after, .to = 0}};
}

} // namespace

std::vector<ListChange> listChanges(const std::vector<std::string>& before,
                                    const std::vector<std::string>& after) {
  std::vector<std::size_t> kept = positionsAfter(before, after);
  std::vector<ListChange> changes;
  appendRemovals(kept, changes);
  std::erase(kept, nowhere);
  if (!appendMoves(kept, changes)) {
    return startOver(before.size(), after.size());
  }
  std::sort(kept.begin(), kept.end());
  appendInsertions(kept, after.size(), changes);
  return changes;
}

} // namespace tamberline
