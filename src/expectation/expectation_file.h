#pragma once

#include "expectation/expectation.h"
#include "inventory/inventory.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace tamberline {

/// The first mistake in a file.
struct FileMistake {
  /// From 1.
  std::size_t line = 1;
  /// Safe to print on a terminal.
  std::string reason;

  friend bool operator==(const FileMistake&, const FileMistake&) = default;
};

constexpr std::size_t maxExpectationFileBytes = 1'000'000;
constexpr std::size_t maxExpectations = 1000;

/// Reads a file of expectations (docs/technicians.md).
std::variant<std::vector<Expectation>, FileMistake> readExpectations(std::string_view content);

/// A file that expects every device of the inventory as it is.
std::string expectationsFor(const Inventory& inventory);

} // namespace tamberline
