#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace tamberline {

/// One step on the way from one list to another. Positions are those at the time of the step.
struct ListChange {
  enum class Kind : unsigned char { remove, insert, move };
  Kind kind = Kind::remove;
  std::size_t first = 0;
  std::size_t count = 0;
  /// Where a moved run begins afterwards; always before `first`. For an insertion: where in the
  /// new list the inserted run stands, which is `first`.
  std::size_t to = 0;

  friend bool operator==(const ListChange&, const ListChange&) = default;
};

/// The steps that turn `before` into `after`: removals first, then moves of whole runs, then
/// insertions. What is in both lists is never removed and inserted again, unless the order changed
/// so thoroughly that starting over is cheaper. A key that stands several times in a list is taken
/// in order.
std::vector<ListChange> listChanges(const std::vector<std::string>& before,
                                    const std::vector<std::string>& after);

} // namespace tamberline
