#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tamberline {

/// One step in turning one list into another. Positions are those at the time of the step.
struct ListChange {
  enum class Kind : unsigned char { remove, insert, move };
  Kind kind = Kind::remove;
  std::size_t first = 0;
  std::size_t count = 0;
  /// For a move: where the run begins afterwards, always before `first`. For an insertion: the
  /// position of the run in the new list, which equals `first`.
  std::size_t to = 0;

  friend bool operator==(const ListChange&, const ListChange&) = default;
};

/// The steps that turn `before` into `after`: removals first, then moves of whole runs, then
/// insertions. A key that is in both lists is not removed and inserted again, unless the order
/// changed so much that starting over is cheaper. Repeated keys are matched in order.
std::vector<ListChange> listChanges(const std::vector<std::string>& before,
                                    const std::vector<std::string>& after);

} // namespace tamberline
