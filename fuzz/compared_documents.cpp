// Two inspection documents, which may be from anyone, as `compare` reads them.
#include "comparison/comparison.h"
#include "comparison/comparison_output.h"
#include "expectation/expectation_check.h"
#include "expectation/expectation_file.h"
#include "fuzz_target.h"
#include "inventory/document_decoding.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cmath>

namespace tamberline {
namespace {

std::optional<Inventory> inventoryIn(std::string_view document) {
  const auto decoded = decodeDocument(document);
  return decoded ? std::optional(inventoryOf(*decoded)) : std::nullopt;
}

void requireSoundInventory(const Inventory& inventory) {
  for (std::size_t index = 0; index < inventory.size(); ++index) {
    const InventoryItem& item = inventory[index];
    require(item.parent.value_or(0) < std::max<std::size_t>(index, 1),
            "each item comes after its parent");
    require(std::isfinite(item.speedGbps.value_or(1)) && item.speedGbps.value_or(1) > 0,
            "a speed is a number above 0");
  }
}

void requireSoundComparison(const Inventory& before, const Inventory& after) {
  const std::vector<Change> changes = comparisonOf(before, after);
  require(nlohmann::json::accept(comparisonDocument(changes).dump(
              -1, ' ', /*ensure_ascii=*/true, nlohmann::json::error_handler_t::replace)),
          "the document can be read");
  require(!comparisonText(changes, /*useColors=*/false, /*columns=*/40).empty(), "there is a text");
}

/// A file that was made from a machine fits this machine.
void requireOwnExpectationsMet(const Inventory& inventory) {
  const auto result = readExpectations(expectationsFor(inventory));
  if (const auto* const expectations = std::get_if<std::vector<Expectation>>(&result)) {
    for (const CheckedExpectation& one : checkedAgainst(inventory, *expectations)) {
      require(one.isMet(), "a machine is as its own file expects");
    }
  }
}

} // namespace

void tryInput(std::string_view input) {
  const std::vector<std::string> documents = partsOf(input, 2);
  const std::optional<Inventory> before = inventoryIn(documents[0]);
  if (!before) {
    return;
  }
  requireSoundInventory(*before);
  require(comparisonOf(*before, *before).empty(), "a state is the same as itself");
  requireOwnExpectationsMet(*before);
  if (const std::optional<Inventory> after = inventoryIn(documents[1])) {
    requireSoundComparison(*before, *after);
    requireSoundComparison(*after, *before);
  }
}

} // namespace tamberline
