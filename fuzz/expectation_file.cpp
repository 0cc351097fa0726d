// A file of expectations, checked against a machine that stays the same.
#include "expectation/expectation_file.h"

#include "base/shown_text.h"
#include "base/utf8.h"
#include "expectation/expectation_check.h"
#include "expectation/expectation_output.h"
#include "fuzz_target.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace tamberline {
namespace {

using Expectations = std::vector<Expectation>;

Inventory attachedDevices() {
  const InventoryItem stick = {.id = "stick",
                               .name = "Pocket Stick",
                               .vendorID = "0xe347",
                               .productID = "0x5202",
                               .serialNumber = "QP2T-40B81C",
                               .portNumber = 1,
                               .speedGbps = 10,
                               .volumes = {{"Fieldwork", "/volumes/1"}}};
  InventoryItem other = stick;
  other.id = "other";
  other.serialNumber = "QP2T-40B81D";
  other.speedGbps = 0.48;
  return {stick, other};
}

void requireSoundMistake(const FileMistake& mistake, std::string_view input) {
  const auto lines = static_cast<std::size_t>(std::count(input.begin(), input.end(), '\n')) + 1;
  require(mistake.line >= 1 && mistake.line <= lines, "a mistake is on a line of the file");
  require(!mistake.reason.empty() && isValidUtf8(mistake.reason) &&
              shownText(mistake.reason, mistake.reason.size()) == mistake.reason,
          "the reason does not disturb a terminal");
}

void requireSoundExpectations(const Expectations& expectations) {
  require(expectations.size() <= maxExpectations, "there are not too many");
  for (const Expectation& one : expectations) {
    require(one.name || one.vendorID || one.serialNumber, "each is known by something");
    require(one.vendorID.has_value() == one.productID.has_value(), "numbers come in pairs");
    require(one.port.value_or(1) > 0 && one.minGbps.value_or(1) > 0, "figures are above 0");
  }
}

void requireSoundCheck(const Inventory& inventory, const Expectations& expectations) {
  const std::vector<CheckedExpectation> checked = checkedAgainst(inventory, expectations);
  require(checked.size() == expectations.size(), "each is checked");
  std::vector<std::size_t> used;
  for (const CheckedExpectation& one : checked) {
    require(one.item.has_value() || !one.isMet(), "nothing is met without a device");
    if (one.item) {
      require(std::find(used.begin(), used.end(), *one.item) == used.end(),
              "no device serves two expectations");
      used.push_back(*one.item);
    }
  }
  const auto written = expectationDocument(checked, inventory).dump();
  require(nlohmann::json::accept(written), "the document can be read");
  const std::string tap = expectationTap(checked, inventory);
  const auto lines = static_cast<std::size_t>(std::count(tap.begin(), tap.end(), '\n'));
  require(lines >= 2 + checked.size() && isValidUtf8(tap), "TAP has a line for each");
}

} // namespace

void tryInput(std::string_view input) {
  static const Inventory inventory = attachedDevices();
  const auto result = readExpectations(input);
  if (const auto* const mistake = std::get_if<FileMistake>(&result)) {
    requireSoundMistake(*mistake, input);
    return;
  }
  const auto& expectations = std::get<Expectations>(result);
  requireSoundExpectations(expectations);
  requireSoundCheck(inventory, expectations);
}

} // namespace tamberline
