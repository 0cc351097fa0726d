// A search text, on a machine that stays the same.
#include "fuzz_target.h"
#include "search_checks.h"
#include "support/sample_records.h"
#include "tree/node_identifiers.h"
#include "tree/port_tree.h"

namespace tamberline {
namespace {

std::vector<TreeNode> sampleTree() {
  USBDevice disk = usbDeviceOnPort(1, "Küste SSD");
  disk.manufacturer = "ÉCLUSE Ωmega";
  return assignStableIDs(
      buildPortTree(
          {.thunderboltBuses = {thunderboltBus(1, {thunderboltDevice("Harbour Dock")}),
                                thunderboltBus(0)},
           .usbBuses = {internalBus({disk}),
                        addOnBus("USB31Bus", {usbDevice("hub_device", {usbDevice("Keys İıß")})})},
           .charger = ChargerInfo{.name = "96W Adapter"},
           .hpmPorts = {magSafePort(1)}}),
      "");
}

} // namespace

void tryInput(std::string_view input) {
  static const std::vector<TreeNode> tree = sampleTree();
  requireSoundSearch(tree, input);
}

} // namespace tamberline
