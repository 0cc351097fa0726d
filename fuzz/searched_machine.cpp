// Three files: the Thunderbolt section, the USB section, and the search text.
#include "device_checks.h"
#include "fuzz_target.h"
#include "reports/report_decoding.h"
#include "reports/thunderbolt_report.h"
#include "reports/usb_report.h"
#include "search_checks.h"
#include "tree/node_identifiers.h"
#include "tree/port_tree.h"

#include <nlohmann/json.hpp>

namespace tamberline {

void tryInput(std::string_view input) {
  const std::vector<std::string> parts = partsOf(input, 3);
  const nlohmann::json thunderbolt = decodeReport(parts[0]).value_or(nlohmann::json::object());
  const nlohmann::json usb = decodeReport(parts[1]).value_or(nlohmann::json::object());
  const std::vector<TreeNode> tree =
      assignStableIDs(buildPortTree({.thunderboltBuses = parseThunderbolt(thunderbolt),
                                     .usbBuses = parseUSB(usb, ContainerIDs())}),
                      "");
  requireUniqueIdentifiers(tree);
  requireSoundSearch(tree, parts[2]);
}

} // namespace tamberline
